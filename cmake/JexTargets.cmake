# Toolkit, warnings, sanitizers and the three kinds of target of this project.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/forms)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

# One name for the toolkit, whichever major version is behind it.
add_library(jex_qtcore INTERFACE)
add_library(jex_qtgui INTERFACE)
if(JEX_QT_MAJOR EQUAL 4)
  find_package(Qt4 4.8 REQUIRED QtCore QtGui)
  target_link_libraries(jex_qtcore INTERFACE Qt4::QtCore)
  target_link_libraries(jex_qtgui INTERFACE Qt4::QtGui)
else()
  find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Test)
  target_link_libraries(jex_qtcore INTERFACE Qt5::Core)
  target_link_libraries(jex_qtgui INTERFACE Qt5::Widgets)
endif()

add_library(jex_flags INTERFACE)
target_include_directories(jex_flags INTERFACE ${PROJECT_SOURCE_DIR})
# The host may define Qt's keyword macros away; our headers must not need them. The sources stay on
# the API that Qt 4.8 has, so Qt 5.15's notes on it would only be noise.
target_compile_definitions(jex_flags INTERFACE QT_NO_KEYWORDS QT_NO_DEPRECATED_WARNINGS)
target_compile_options(jex_flags INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor
  -Woverloaded-virtual -Wno-deprecated-declarations)
if(JEX_WERROR)
  target_compile_options(jex_flags INTERFACE -Werror)
endif()
if(JEX_SANITIZE)
  target_compile_options(jex_flags INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
    -fno-sanitize-recover=undefined)
  target_link_options(jex_flags INTERFACE -fsanitize=address,undefined)
endif()
if(JEX_FUZZ)
  target_compile_options(jex_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_compile_definitions(jex_flags INTERFACE JEX_FUZZ)
endif()

# With JEX_PRECOMPILE the headers of Qt are read once for all targets of a kind, not by each source. Builds
# without it see that a source includes what it uses.
if(JEX_PRECOMPILE)
  target_compile_options(jex_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>) # ccache needs it
  file(TOUCH ${PROJECT_BINARY_DIR}/precompiled.cpp)
  foreach(kind core gui test)
    add_library(jex_${kind}_headers OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
    set_target_properties(jex_${kind}_headers PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(jex_${kind}_headers PRIVATE jex_flags)
  endforeach()
  target_link_libraries(jex_core_headers PRIVATE jex_qtcore)
  target_precompile_headers(jex_core_headers PRIVATE <QtCore>)
  target_link_libraries(jex_gui_headers PRIVATE jex_qtgui)
  target_precompile_headers(jex_gui_headers PRIVATE <QtWidgets>)
  target_link_libraries(jex_test_headers PRIVATE jex_qtgui Qt5::Test)
  target_precompile_headers(jex_test_headers PRIVATE <QtTest> <QtWidgets>)
endif()
function(jex_precompile name kind)
  if(JEX_PRECOMPILE)
    target_precompile_headers(${name} REUSE_FROM jex_${kind}_headers)
  endif()
endfunction()

# jex_sources(VARIABLE [ONLY | EXCEPT names...]): the sources of this folder and of those in it, to which a new
# one belongs by itself; only those of these names, less their suffixes, or all but those.
function(jex_sources variable)
  cmake_parse_arguments(S "" "" "ONLY;EXCEPT" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h *.qrc)
  list(JOIN S_ONLY "|" only)
  list(JOIN S_EXCEPT "|" except)
  if(only)
    list(FILTER sources INCLUDE REGEX "/(${only})\\.[a-z]+$")
  elseif(except)
    list(FILTER sources EXCLUDE REGEX "/(${except})\\.[a-z]+$")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# jex_core_library(NAME SHARED|STATIC|OBJECT sources...): code that needs no widget. It links QtCore alone,
# so a widget include that creeps in fails the build.
function(jex_core_library name kind)
  add_library(${name} ${kind} ${ARGN})
  target_link_libraries(${name} PUBLIC $<BUILD_INTERFACE:jex_flags> jex_qtcore)
  jex_precompile(${name} core)
  target_include_directories(${name} INTERFACE $<INSTALL_INTERFACE:include/jexins>)
endfunction()

# jex_gui_library(NAME SHARED|STATIC sources...)
function(jex_gui_library name kind)
  add_library(${name} ${kind} ${ARGN})
  target_link_libraries(${name} PUBLIC $<BUILD_INTERFACE:jex_flags> jex_qtgui)
  jex_precompile(${name} gui)
  target_include_directories(${name} INTERFACE $<INSTALL_INTERFACE:include/jexins>)
endfunction()

# jex_room(NAME sources...): one room of the plug-in, compiled once and linked both into the plug-in
# and into the tests of the room.
function(jex_room name)
  add_library(${name} OBJECT ${ARGN})
  target_link_libraries(${name} PUBLIC jex_flags jex_qtgui)
  jex_precompile(${name} gui)
endfunction()

# jex_test(NAME [XVFB] SOURCES ... LIBS ...): one test program, run without a display; XVFB runs it in
# a real window on a virtual X server instead.
function(jex_test name)
  cmake_parse_arguments(T "XVFB" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE jex_flags jex_qtgui Qt5::Test ${T_LIBS})
  jex_precompile(${name} test)
  if(T_XVFB)
    add_test(NAME ${name} COMMAND xvfb-run -a -s "-screen 0 1280x800x24" $<TARGET_FILE:${name}>)
    set(platform xcb)
    # Without frame pointers in the X libraries only the slow unwinder can tell their leaks from ours.
    set(unwind ":fast_unwind_on_malloc=0")
  else()
    add_test(NAME ${name} COMMAND ${name})
    set(platform offscreen)
    set(unwind "")
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT
    "QT_QPA_PLATFORM=${platform};LC_ALL=C.UTF-8;QT_LOGGING_RULES=;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0;ASAN_OPTIONS=detect_odr_violation=0${unwind};UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# jex_patience(SECONDS NAMES...): each function of these tests, and each row of its data, is ended when it takes
# longer. So is what hostile input must not let stand still; no test asserts a time.
function(jex_patience seconds)
  foreach(name ${ARGN})
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT QTEST_FUNCTION_TIMEOUT=${seconds}000)
  endforeach()
endfunction()
