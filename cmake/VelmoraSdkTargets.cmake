# velmora_sdk_targets(<folder> <missing>): the engine's libraries below the folder as imported targets
# Velmora::<library>, and Velmora::interfaces for the headers. In the variable <missing> stays what the
# folder lacks, in words; empty when it is complete. This file is part of the installed package, too.

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

macro(velmora_sdk_targets folder missing)
  get_filename_component(velmora_sdk "${folder}" ABSOLUTE)
  set(${missing} "")

  find_path(velmora_sdk_include NAMES ${VELMORA_SDK_HEADER_interfaces} PATHS "${velmora_sdk}/include"
            PATH_SUFFIXES velmora NO_DEFAULT_PATH NO_CACHE)
  if(NOT velmora_sdk_include)
    list(APPEND ${missing} "header ${VELMORA_SDK_HEADER_interfaces} below ${velmora_sdk}/include")
  endif()
  if(NOT TARGET Velmora::interfaces)
    add_library(Velmora::interfaces INTERFACE IMPORTED)
    if(velmora_sdk_include)
      set_target_properties(Velmora::interfaces PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${velmora_sdk_include}")
    endif()
    set_property(TARGET Velmora::interfaces APPEND PROPERTY INTERFACE_LINK_LIBRARIES Boost::headers)
  endif()

  foreach(velmora_name IN LISTS VELMORA_SDK_LIBRARIES)
    set(velmora_file ${velmora_name})
    if(velmora_name STREQUAL common_ui_qt)
      set(velmora_file common_ui_qt${VELMORA_TOOLKIT_SUFFIX}) # the one that is made of the toolkit
    endif()
    find_library(velmora_sdk_${velmora_name} NAMES ${velmora_file} NO_DEFAULT_PATH NO_CACHE
                 PATHS "${velmora_sdk}/lib" "${velmora_sdk}/lib64" "${velmora_sdk}/lib/${CMAKE_LIBRARY_ARCHITECTURE}")
    if(NOT velmora_sdk_${velmora_name})
      list(APPEND ${missing} "library lib${velmora_file}.so below ${velmora_sdk}/lib")
    endif()
    if(velmora_sdk_include AND NOT EXISTS "${velmora_sdk_include}/${VELMORA_SDK_HEADER_${velmora_name}}")
      list(APPEND ${missing} "header ${VELMORA_SDK_HEADER_${velmora_name}} below ${velmora_sdk_include}")
    endif()
    if(NOT TARGET Velmora::${velmora_name})
      add_library(Velmora::${velmora_name} SHARED IMPORTED)
      set_target_properties(Velmora::${velmora_name} PROPERTIES IMPORTED_LOCATION "${velmora_sdk_${velmora_name}}")
      set_property(TARGET Velmora::${velmora_name} APPEND PROPERTY INTERFACE_LINK_LIBRARIES Velmora::interfaces)
    endif()
  endforeach()
endmacro()
