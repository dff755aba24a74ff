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
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
if(VELM_SANITIZE)
  target_compile_options(velm_flags INTERFACE -fsanitize=${VELM_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(velm_flags INTERFACE -fsanitize=${VELM_SANITIZE})
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

# Shared precompiled headers: one for logic, one for windows.
foreach(kind core widgets)
  file(WRITE ${CMAKE_BINARY_DIR}/pch_${kind}.cpp "")
  add_library(velm_pch_${kind} STATIC ${CMAKE_BINARY_DIR}/pch_${kind}.cpp)
  target_link_libraries(velm_pch_${kind} PUBLIC velm_flags Qt6::Core)
  if(kind STREQUAL widgets)
    target_link_libraries(velm_pch_${kind} PUBLIC Qt6::Widgets)
  endif()
  if(VELM_PCH)
    target_precompile_headers(velm_pch_${kind} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch_${kind}.h)
  endif()
endforeach()

function(velm_pch target kind)
  if(VELM_PCH)
    target_precompile_headers(${target} REUSE_FROM velm_pch_${kind})
  endif()
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
endfunction()

# velm_ui(NAME files... [LINK libs...]): a room's windows.
function(velm_ui name)
  cmake_parse_arguments(A "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${A_UNPARSED_ARGUMENTS})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC velm_flags Qt6::Widgets ${A_LINK})
  velm_pch(${name} widgets)
endfunction()

# velm_tests(NAME files... [LINK libs...] [UI]): one GoogleTest program; UI runs offscreen with the test's own main.
function(velm_tests name)
  cmake_parse_arguments(A "UI" "" "LINK" ${ARGN})
  add_executable(tests_${name} ${A_UNPARSED_ARGUMENTS})
  if(A_UI)
    target_sources(tests_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/main_ui.cpp)
    set_target_properties(tests_${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(tests_${name} PRIVATE velm_flags Qt6::Widgets Qt6::Test GTest::gtest GTest::gmock ${A_LINK})
    velm_pch(tests_${name} widgets)
  else()
    target_sources(tests_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/main_core.cpp)
    target_link_libraries(tests_${name} PRIVATE velm_flags Qt6::Core GTest::gtest GTest::gmock ${A_LINK})
    velm_pch(tests_${name} core)
  endif()
  target_compile_definitions(tests_${name} PRIVATE VELM_SOURCE_DIR="${CMAKE_SOURCE_DIR}" VELM_BINARY_DIR="${CMAKE_BINARY_DIR}")
  gtest_discover_tests(tests_${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    PROPERTIES TIMEOUT 600 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
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
