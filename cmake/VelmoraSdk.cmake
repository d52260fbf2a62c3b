# The engine's libraries, as targets Velmora::<library>: the reference platform of this tree, or
# the maker's, found below VELMORA_SDK_ROOT.
set(VELMORA_SDK_LIBRARIES exception velengine vltoolbox vlsdkbase vlsdkintegrationmanager common_ui_qt
                          common_analytics)

# One header of each library, by which its presence is checked.
set(VELMORA_SDK_HEADER_interfaces interfaces/ManagerInterface.h)
set(VELMORA_SDK_HEADER_exception exception/ExceptionBase.h)
set(VELMORA_SDK_HEADER_velengine engine/VelUtil.h)
set(VELMORA_SDK_HEADER_vltoolbox toolbox/StyleValue.h)
set(VELMORA_SDK_HEADER_vlsdkbase base/AppLock.h)
set(VELMORA_SDK_HEADER_vlsdkintegrationmanager integrationmanager/ManagerAbstract.h)
set(VELMORA_SDK_HEADER_common_ui_qt ui_qt/OverrideCursor.h)
set(VELMORA_SDK_HEADER_common_analytics analytics/GoogleAnalytics.h)

find_package(Boost 1.66 REQUIRED)

if(NOT VELMORA_SDK_ROOT)
  add_library(velmora_interfaces INTERFACE)
  add_library(Velmora::interfaces ALIAS velmora_interfaces)
  target_include_directories(velmora_interfaces INTERFACE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(velmora_interfaces INTERFACE Boost::headers)
  add_subdirectory("${PROJECT_SOURCE_DIR}/platform")
  return()
endif()

get_filename_component(sdk "${VELMORA_SDK_ROOT}" ABSOLUTE)
set(sdk_missing "")

find_path(sdk_include NAMES ${VELMORA_SDK_HEADER_interfaces} PATHS "${sdk}/include" PATH_SUFFIXES velmora
          NO_DEFAULT_PATH NO_CACHE)
if(NOT sdk_include)
  list(APPEND sdk_missing "header ${VELMORA_SDK_HEADER_interfaces} below ${sdk}/include")
endif()

add_library(Velmora::interfaces INTERFACE IMPORTED GLOBAL)
if(sdk_include)
  set_target_properties(Velmora::interfaces PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${sdk_include}")
endif()
set_property(TARGET Velmora::interfaces APPEND PROPERTY INTERFACE_LINK_LIBRARIES Boost::headers)

foreach(name IN LISTS VELMORA_SDK_LIBRARIES)
  find_library(sdk_${name} NAMES ${name} PATHS "${sdk}/lib" "${sdk}/${CMAKE_INSTALL_LIBDIR}" NO_DEFAULT_PATH NO_CACHE)
  if(NOT sdk_${name})
    list(APPEND sdk_missing "library lib${name}.so below ${sdk}/lib")
  endif()
  if(sdk_include AND NOT EXISTS "${sdk_include}/${VELMORA_SDK_HEADER_${name}}")
    list(APPEND sdk_missing "header ${VELMORA_SDK_HEADER_${name}} below ${sdk_include}")
  endif()
  add_library(Velmora::${name} SHARED IMPORTED GLOBAL)
  set_target_properties(Velmora::${name} PROPERTIES IMPORTED_LOCATION "${sdk_${name}}")
  set_property(TARGET Velmora::${name} APPEND PROPERTY INTERFACE_LINK_LIBRARIES Velmora::interfaces)
endforeach()

if(sdk_missing)
  list(JOIN sdk_missing "\n  " sdk_missing)
  message(FATAL_ERROR "VELMORA_SDK_ROOT=${VELMORA_SDK_ROOT} does not hold a complete SDK. Missing:\n  ${sdk_missing}\n"
                      "Point VELMORA_SDK_ROOT at the folder that holds the maker's include/ and lib/, "
                      "or leave it empty to build the reference platform.")
endif()
message(STATUS "Velmora SDK: ${sdk}")
