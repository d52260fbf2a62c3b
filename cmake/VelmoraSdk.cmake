# The engine's libraries, as targets Velmora::<library>: the reference platform of this tree, or
# the maker's, found below VELMORA_SDK_ROOT.
include(VelmoraSdkTargets)

find_package(Boost 1.66 REQUIRED)

if(NOT VELMORA_SDK_ROOT)
  add_library(velmora_interfaces INTERFACE)
  add_library(Velmora::interfaces ALIAS velmora_interfaces)
  set_target_properties(velmora_interfaces PROPERTIES EXPORT_NAME interfaces)
  target_include_directories(velmora_interfaces INTERFACE "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>"
                                                          "$<INSTALL_INTERFACE:${VELMORA_INSTALL_HEADERS}>")
  target_link_libraries(velmora_interfaces INTERFACE Boost::headers)
  add_subdirectory("${PROJECT_SOURCE_DIR}/platform")
  return()
endif()

get_filename_component(VELMORA_SDK_ROOT "${VELMORA_SDK_ROOT}" ABSOLUTE)
velmora_sdk_targets("${VELMORA_SDK_ROOT}" sdk_missing)
if(sdk_missing)
  list(JOIN sdk_missing "\n  " sdk_missing)
  message(FATAL_ERROR "VELMORA_SDK_ROOT=${VELMORA_SDK_ROOT} does not hold a complete SDK. Missing:\n  ${sdk_missing}\n"
                      "Point VELMORA_SDK_ROOT at the folder that holds the maker's include/ and lib/, "
                      "or leave it empty to build the reference platform.")
endif()
# The installed library looks for the maker's where they are now.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
message(STATUS "Velmora SDK: ${VELMORA_SDK_ROOT}")
