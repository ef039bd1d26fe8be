# The three kinds of target that the project has.

# One empty library per precompiled header; the others reuse its result.
function(velmar_precompiled name)
  cmake_parse_arguments(arg "" "" "LINK;HEADERS" ${ARGN})
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp "")
  add_library(${name} STATIC ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PUBLIC velmar_options ${arg_LINK})
  if(VELMAR_PCH)
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
  endif()
endfunction()

function(velmar_reuse_precompiled target from)
  if(VELMAR_PCH)
    target_precompile_headers(${target} REUSE_FROM ${from})
  endif()
endfunction()

# velmar_kit(name SOURCES … LINK …): a library without interface, on QtCore.
function(velmar_kit name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC velmar_options Qt6::Core ${arg_LINK})
  velmar_reuse_precompiled(${name} velmar_pch_core)
endfunction()

# velmar_pane(name SOURCES … LINK …): a library of the application, on Qt Widgets.
function(velmar_pane name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC velmar_options Qt6::Widgets ${arg_LINK})
  velmar_reuse_precompiled(${name} velmar_pch_gui)
endfunction()

# Read by programs with the address sanitizer only.
set(velmar_leaks
  "LSAN_OPTIONS=print_suppressions=0:suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp")

# velmar_test(name SOURCES … LINK … [GUI] [MOC] [TIMEOUT seconds]): a GoogleTest program and its
# ctest entry. It runs offscreen and with folders of its own for settings, state and locks.
function(velmar_test name)
  cmake_parse_arguments(arg "GUI;MOC" "TIMEOUT" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  if(arg_GUI)
    target_link_libraries(${name} PRIVATE velmar_test_main_gui Qt6::Widgets Qt6::Test)
    velmar_reuse_precompiled(${name} velmar_pch_test_gui)
    # Qt defines them anew for each folder, which would make the precompiled header useless.
    target_compile_options(${name} PRIVATE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
  else()
    target_link_libraries(${name} PRIVATE velmar_test_main)
    velmar_reuse_precompiled(${name} velmar_pch_test)
  endif()
  target_link_libraries(${name} PRIVATE velmar_options ${arg_LINK} GTest::gmock)
  if(arg_MOC)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  target_compile_definitions(${name} PRIVATE
    VELMAR_SOURCE_DIR="${CMAKE_SOURCE_DIR}" VELMAR_BINARY_DIR="${CMAKE_BINARY_DIR}")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_test(NAME ${name} COMMAND ${CMAKE_SOURCE_DIR}/tests/support/sandboxed $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT}
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8;${velmar_leaks}")
endfunction()

# velmar_script_test(name COMMAND … [TIMEOUT seconds]): a script as a ctest entry; 77 is a skip.
function(velmar_script_test name)
  cmake_parse_arguments(arg "SERIAL" "TIMEOUT" "COMMAND" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 180)
  endif()
  add_test(NAME ${name} COMMAND ${arg_COMMAND})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} SKIP_RETURN_CODE 77
    ENVIRONMENT "VELMAR_BIN=${CMAKE_BINARY_DIR}/bin;TZ=UTC;LC_ALL=C.UTF-8;${velmar_leaks}")
  if(arg_SERIAL)
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  endif()
endfunction()
