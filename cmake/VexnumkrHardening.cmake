# What makes faults harder to exploit, in builds that users get. Sanitizers find faults in their own way,
# and do not go together with all of it.
include(CheckPIESupported)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported()

if(NOT WIN32 AND NOT VEXNUMKR_SANITIZE)
  target_compile_options(vexnumkr_options INTERFACE
    -fstack-protector-strong -fstack-clash-protection
    # It needs an optimising compiler.
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3>)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
    target_compile_options(vexnumkr_options INTERFACE -fcf-protection=full)
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
    target_compile_options(vexnumkr_options INTERFACE -mbranch-protection=standard)
  endif()
  target_link_options(vexnumkr_options INTERFACE -Wl,-z,relro,-z,now -Wl,-z,noexecstack)
endif()

# Addresses at random, and data that is not executed, are what the linker does by itself there. What the
# checks call goes inside, so that nobody has to hand on another library; newer runtimes have it.
if(MINGW)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libssp.a
    OUTPUT_VARIABLE checks OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(IS_ABSOLUTE "${checks}")
    target_link_libraries(vexnumkr_options INTERFACE "${checks}")
  endif()
  target_compile_options(vexnumkr_options INTERFACE -fstack-protector-strong
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()

# What is built does not depend on where and when.
if(MINGW)
  target_link_options(vexnumkr_options INTERFACE -Wl,--no-insert-timestamp)
endif()
if(NOT VEXNUMKR_SANITIZE)
  target_compile_options(vexnumkr_options INTERFACE
    "-ffile-prefix-map=${PROJECT_BINARY_DIR}=." "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")
endif()
