# The project's own building blocks: compiler settings, logic libraries, windows, tests.

# Makes quib_options, the interface target with the flags of every target of ours.
function(quib_set_up_compiler)
  add_library(quib_options INTERFACE)
  target_compile_features(quib_options INTERFACE cxx_std_20)
  target_compile_options(quib_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  target_compile_definitions(quib_options INTERFACE QUIB_VERSION="${PROJECT_VERSION}")
  if(QUIB_WARNINGS_ARE_ERRORS)
    target_compile_options(quib_options INTERFACE -Werror)
  endif()
  if(QUIB_SANITIZERS)
    target_compile_options(quib_options INTERFACE -fsanitize=${QUIB_SANITIZERS}
                                                  -fno-sanitize-recover=all
                                                  -fno-omit-frame-pointer)
    target_link_options(quib_options INTERFACE -fsanitize=${QUIB_SANITIZERS})
  endif()
  if(QUIB_COVERAGE)
    target_compile_options(quib_options INTERFACE --coverage -O0)
    target_link_options(quib_options INTERFACE --coverage)
  endif()
  if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
  endif()
  find_program(QUIB_CCACHE ccache)
  if(QUIB_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${QUIB_CCACHE}" PARENT_SCOPE)
  endif()
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON PARENT_SCOPE)
  set(CMAKE_CXX_EXTENSIONS OFF PARENT_SCOPE)
endfunction()

# quib_add_logic(<room> SOURCES <file>... [USES <room>...] [LIBRARIES <target>...])
# The room's logic as the library quib_<room>: standard library only, and the libraries that LIBRARIES
# names. USES names the rooms that it may include; the include lint reads the same lines, and a test of
# the room is linked to no others.
function(quib_add_logic room)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;LIBRARIES")
  add_library(quib_${room} STATIC ${arg_SOURCES})
  target_include_directories(quib_${room} PUBLIC "${PROJECT_SOURCE_DIR}")
  list(TRANSFORM arg_USES PREPEND quib_)
  target_link_libraries(quib_${room} PUBLIC ${arg_USES}
                                         PRIVATE ${arg_LIBRARIES} quib_options)
endfunction()

# quib_add_windows(<room> SOURCES <file>... USES <room>... [LIBRARIES <target>...])
# The room windows/<room> as the library quib_windows_<room>. USES names rooms of the logic, and rooms of
# the windows as windows/<room>.
function(quib_add_windows room)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;LIBRARIES")
  add_library(quib_windows_${room} STATIC ${arg_SOURCES})
  target_include_directories(quib_windows_${room} PUBLIC "${PROJECT_SOURCE_DIR}")
  list(TRANSFORM arg_USES REPLACE "/" "_")
  list(TRANSFORM arg_USES PREPEND quib_)
  target_link_libraries(quib_windows_${room} PUBLIC ${arg_USES} ${arg_LIBRARIES}
                                                 PRIVATE quib_options)
  set_target_properties(quib_windows_${room} PROPERTIES AUTOMOC ON AUTORCC ON)
endfunction()
