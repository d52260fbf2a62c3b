# The Qt toolkit behind one target, velmora_toolkit. What differs between the toolkits is in cmake/toolkit/, a file
# for each, which sets:
#   velmora_toolkit's libraries
#   VELMORA_FIND_TOOLKIT, VELMORA_PC_TOOLKIT   what the installed package asks for to have the same toolkit
#                                              again, for CMake and for pkg-config
#   velmora_add_resources(<out> files…)        generates the sources of Qt resource files; their tree has format
#                                              version 1, the only one that all toolkits write and read
#   VELMORA_TOOLKIT_SUFFIX                     what ends the names of the library, its packages and folders, so that those
#                                              of several toolkits can be installed side by side
#   VELMORA_TOOLKIT_PACKAGES                   the Debian packages that a host is built with
#   VELMORA_TOOLKIT_SCALES                     it can scale its windows
#   VELMORA_TOOLKIT_HAS_PLATFORMS              it runs on other platforms than X11, told by -platform
#   VELMORA_TOOLKIT_HAS_NEWER_PAPERS           it knows more papers by name than Qt 4
#   VELMORA_TOOLKIT_SURVIVES_NO_APPLICATION    asked for the screens without an application object, it goes on
#   VELMORA_TOOLKIT_HAS_PEERS                  the distribution has the peers of benchmarks/peers for it
#   VELMORA_TOOLKIT_HAS_QGL                    it has OpenGL widgets of its own, which can be asked for accumulation
#   VELMORA_TOOLKIT_HAS_WAYLAND                it can be a native Wayland client
#   VELMORA_TOOLKIT_TAKES_INCH_OF_SERVER       its logical inch is the X server's, in each direction by itself
#   VELMORA_TOOLKIT_LEAVES_VISUAL              it does not take the chosen X visual itself but its sizes
add_library(velmora_toolkit INTERFACE)
target_compile_definitions(velmora_toolkit INTERFACE QT_NO_KEYWORDS)
set_target_properties(velmora_toolkit PROPERTIES EXPORT_NAME toolkit)

# velmora_find_toolkit_in_modules(<package> <version> modules…): for a toolkit whose package, targets and pkg-config
# files are named alike. A macro: what the package sets is needed by its functions later on.
macro(velmora_find_toolkit_in_modules package version)
  find_package(${package} ${version} REQUIRED COMPONENTS ${ARGN})
  string(REPLACE ";" " " VELMORA_FIND_TOOLKIT "find_dependency(${package} ${version} COMPONENTS ${ARGN})")
  set(VELMORA_PC_TOOLKIT ${ARGN})
  list(TRANSFORM VELMORA_PC_TOOLKIT PREPEND ${package})
  set(toolkit_libraries ${ARGN})
  list(TRANSFORM toolkit_libraries PREPEND ${package}::)
  target_link_libraries(velmora_toolkit INTERFACE ${toolkit_libraries})
endmacro()

set(toolkit_answers "${CMAKE_CURRENT_LIST_DIR}/toolkit/Qt${VELMORA_QT_MAJOR}.cmake")
if(NOT EXISTS "${toolkit_answers}")
  message(FATAL_ERROR "VELMORA_QT_MAJOR is \"${VELMORA_QT_MAJOR}\"; set it to 4, 5 or 6.")
endif()
include("${toolkit_answers}")
