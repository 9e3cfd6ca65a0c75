# The real dialogs on a real database.
add_library(vexnumkr_dialog_session STATIC support/dialog_session.cpp support/modal_user.cpp)
target_link_libraries(vexnumkr_dialog_session
  PUBLIC vexnumkr_scenario_driver GTest::gtest
  PRIVATE vexnumkr_options Qt6::Test)

foreach(name circles closing controls editor_walk entries filters loading options special_ranges ticks
    tree validation)
  vexnumkr_test(gui/dialog_${name}_test GUI LABEL gui LINKS vexnumkr_dialog_session)
endforeach()
