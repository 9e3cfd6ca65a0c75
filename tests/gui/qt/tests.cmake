foreach(name guarded tool_tips units)
  vexnumkr_test(gui/qt/qt_${name}_test GUI LABEL gui LINKS vexnumkr_qt)
endforeach()
