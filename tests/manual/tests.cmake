# The users' manual, docs/handbuch.md: the program that makes its pictures, and what it says.
add_executable(vexnumkr-manual-pictures manual/manual_pictures.cpp manual/manual_tour.cpp)
target_include_directories(vexnumkr-manual-pictures PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
target_link_libraries(vexnumkr-manual-pictures
  PRIVATE vexnumkr_host_components vexnumkr_options Qt6::Widgets)
target_compile_definitions(vexnumkr-manual-pictures
  PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
