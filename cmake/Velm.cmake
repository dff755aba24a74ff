# The build's vocabulary: one static library per room, split in logic (QtCore) and windows (QtWidgets).

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers need this sloppiness, otherwise ccache never hits.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()

# Every target compiles with the same flags, so that the precompiled headers can be shared.
add_library(velm_flags INTERFACE)
target_include_directories(velm_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(velm_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT $<$<NOT:$<CONFIG:Release>>:_GLIBCXX_ASSERTIONS>)
target_compile_options(velm_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
  "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")
if(VELM_SANITIZE)
  target_compile_options(velm_flags INTERFACE -fsanitize=${VELM_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(velm_flags INTERFACE -fsanitize=${VELM_SANITIZE})
  if(VELM_SANITIZE MATCHES "address")
    target_compile_definitions(velm_flags INTERFACE VELM_ADDRESS_SANITIZER)
  endif()
endif()
if(VELM_FUZZ)
  target_compile_options(velm_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VELM_COVERAGE)
  target_compile_options(velm_flags INTERFACE --coverage -O0)
  target_link_options(velm_flags INTERFACE --coverage)
endif()

# The fast linker where there is one: some twenty programs are linked against static rooms.
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM)
  target_link_options(velm_flags INTERFACE -fuse-ld=lld)
endif()

# velm_pch_header(NAME libs...): precompiles cmake/pch_NAME.h as those targets see it that link the libraries.
function(velm_pch_header name)
  file(WRITE ${CMAKE_BINARY_DIR}/pch_${name}.cpp "")
  add_library(velm_pch_${name} STATIC ${CMAKE_BINARY_DIR}/pch_${name}.cpp)
  target_link_libraries(velm_pch_${name} PUBLIC ${ARGN})
  if(VELM_PCH)
    target_precompile_headers(velm_pch_${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch_${name}.h)
  endif()
endfunction()

# Shared by the rooms: one for logic, one for windows. The tests have two of their own.
velm_pch_header(core velm_flags Qt6::Core)
velm_pch_header(widgets velm_flags Qt6::Widgets)

function(velm_pch target kind)
  if(VELM_PCH)
    target_precompile_headers(${target} REUSE_FROM velm_pch_${kind})
  endif()
endfunction()

# A build from nothing spends most of its time on the same headers and templates again: some files are one unit then.
# No two files of a room, or of a program of tests, have a name of their own in common, so that any of them can stand
# together; one that must has SKIP_UNITY_BUILD_INCLUSION in its CMakeLists.txt.
function(velm_units target size)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${VELM_UNITY} UNITY_BUILD_BATCH_SIZE ${size})
endfunction()

# velm_logic(NAME files... [LINK libs...]): a room's logic; no Qt beyond Core unless linked by name.
function(velm_logic name)
  cmake_parse_arguments(A "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${A_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PUBLIC velm_flags Qt6::Core ${A_LINK})
  get_target_property(libs ${name} LINK_LIBRARIES)
  foreach(l IN LISTS libs)
    if(l MATCHES "Qt6::Widgets|_ui$|velm_widgets")
      message(FATAL_ERROR "${name} is logic and must not link ${l}")
    endif()
  endforeach()
  velm_pch(${name} core)
  velm_units(${name} 8)
endfunction()

# velm_ui(NAME files... [LINK libs...]): a room's windows.
function(velm_ui name)
  cmake_parse_arguments(A "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${A_UNPARSED_ARGUMENTS})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC velm_flags Qt6::Widgets ${A_LINK})
  velm_pch(${name} widgets)
  velm_units(${name} 8)
endfunction()

# Two thirds of what is compiled are tests, which run once: they are compiled for the compiler's time. Rooms stay as users get them.
function(velm_test_flags)
  add_library(velm_test_flags INTERFACE)
  target_link_libraries(velm_test_flags INTERFACE velm_flags GTest::gtest GTest::gmock)
  target_compile_options(velm_test_flags INTERFACE -O0 $<$<CONFIG:RelWithDebInfo>:-g0>)
  if(VELM_SANITIZE MATCHES "undefined")
    # A quarter of their compile time, for checks of the tests' own arithmetic.
    target_compile_options(velm_test_flags INTERFACE -fno-sanitize=undefined)
  endif()
  velm_pch_header(tests_core velm_test_flags Qt6::Core)
  velm_pch_header(tests_widgets velm_test_flags Qt6::Widgets Qt6::Test)
endfunction()

# velm_tests(NAME files... [LINK libs...] [PARTS n] [UI]): one GoogleTest program, run by CTest in that many parts; UI runs offscreen
# with the test's own main. Within a part the tests share one process.
function(velm_tests name)
  cmake_parse_arguments(A "UI" "PARTS" "LINK" ${ARGN})
  add_executable(tests_${name} ${A_UNPARSED_ARGUMENTS})
  if(A_UI)
    target_sources(tests_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/main_ui.cpp)
    target_link_libraries(tests_${name} PRIVATE velm_test_flags Qt6::Widgets Qt6::Test ${A_LINK})
    velm_pch(tests_${name} tests_widgets)
  else()
    target_sources(tests_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/main_core.cpp)
    target_link_libraries(tests_${name} PRIVATE velm_test_flags Qt6::Core ${A_LINK})
    velm_pch(tests_${name} tests_core)
  endif()
  velm_units(tests_${name} 12)
  target_compile_definitions(tests_${name} PRIVATE VELM_SOURCE_DIR="${CMAKE_SOURCE_DIR}" VELM_BINARY_DIR="${CMAKE_BINARY_DIR}")
  if(NOT A_PARTS)
    set(A_PARTS 1)
  endif()
  # The script has a limit of ten minutes for each test; this one is for the case that it does not come to its end itself.
  foreach(part RANGE 1 ${A_PARTS})
    add_test(NAME ${name}.${part} COMMAND ${CMAKE_SOURCE_DIR}/tests/support/run_part.py --part ${part}/${A_PARTS}
             --report ${CMAKE_BINARY_DIR}/essais/${name}.${part}.json $<TARGET_FILE:tests_${name}>)
    set_tests_properties(${name}.${part} PROPERTIES TIMEOUT 2400 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    if(A_PARTS GREATER 1)
      # The longest first, so that none is left alone at the end.
      set_tests_properties(${name}.${part} PROPERTIES COST 10)
    endif()
  endforeach()
endfunction()

# velm_fuzz(NAME file [LINK libs...]): one libFuzzer target.
function(velm_fuzz name)
  if(NOT VELM_FUZZ)
    return()
  endif()
  cmake_parse_arguments(A "" "" "LINK" ${ARGN})
  add_executable(fuzz_${name} ${A_UNPARSED_ARGUMENTS} reglages.cpp)
  target_link_libraries(fuzz_${name} PRIVATE velm_flags ${A_LINK})
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
endfunction()
