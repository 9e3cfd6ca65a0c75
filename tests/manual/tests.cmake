# The users' manual, docs/handbuch.md: the program that makes its pictures, and what it says.
add_executable(vexnumkr-manual-pictures manual/manual_pictures.cpp manual/manual_tour.cpp)
target_include_directories(vexnumkr-manual-pictures PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
target_link_libraries(vexnumkr-manual-pictures
  PRIVATE vexnumkr_host_components vexnumkr_options Qt6::Widgets)
target_compile_definitions(vexnumkr-manual-pictures
  PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)

vexnumkr_test(manual/manual_test LABEL unit
  QT SOURCES manual/source_texts.cpp
    "${PROJECT_SOURCE_DIR}/src/app/components/booking_circles.cpp"
    "${PROJECT_SOURCE_DIR}/src/app/sql.cpp"
  LINKS vexnumkr_core_session vexnumkr_main_dialog)
vexnumkr_test(manual/manual_pictures_test GUI LABEL gui LINKS vexnumkr_test_app)
add_dependencies(manual_pictures_test vexnumkr-manual-pictures)
target_compile_definitions(manual_pictures_test
  PRIVATE MANUAL_PICTURES="$<TARGET_FILE:vexnumkr-manual-pictures>")
foreach(test manual_test manual_pictures_test)
  target_compile_definitions(${test} PRIVATE PROJECT_DIR="${PROJECT_SOURCE_DIR}")
endforeach()
