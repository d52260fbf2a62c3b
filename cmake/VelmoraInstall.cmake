# What `cmake --install` puts where, in components:
#   runtime, development                      the product: its library; its headers, CMake package and .pc file
#   platform, platform_development            the same of the reference platform, which a maker's SDK replaces
#   examples                                  the viewer, the sources of the examples and their data
# All headers go below one folder, so that they are included as in this tree.
set(VELMORA_INSTALL_HEADERS "${CMAKE_INSTALL_INCLUDEDIR}/velmora")
set(VELMORA_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/VelmoraIntegrationQt")
set(VELMORA_INSTALL_EXAMPLES "${CMAKE_INSTALL_DATADIR}/velmora/examples")

# velmora_install_headers(<component> <base folder> headers…): each keeps its folder below the base.
function(velmora_install_headers component base)
  foreach(header IN LISTS ARGN)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${base}/${header}" DESTINATION "${VELMORA_INSTALL_HEADERS}/${folder}" COMPONENT ${component})
  endforeach()
endfunction()

# velmora_install_library(<target> <export set> <component> <component for development>)
function(velmora_install_library target set component development)
  install(TARGETS ${target} EXPORT ${set}
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${component} NAMELINK_COMPONENT ${development}
    INCLUDES DESTINATION "${VELMORA_INSTALL_HEADERS}")
endfunction()

# velmora_install_pkgconfig(<template> <component>): the prefix is told from the file's own place, so that
# the installation can be moved.
function(velmora_install_pkgconfig template component)
  get_filename_component(name "${template}" NAME_WLE)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
  else()
    file(RELATIVE_PATH pc_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    set(pc_prefix "\${pcfiledir}/${pc_prefix}")
  endif()
  configure_file("${template}" "${PROJECT_BINARY_DIR}/pkgconfig/${name}" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/pkgconfig/${name}" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT ${component})
endfunction()
