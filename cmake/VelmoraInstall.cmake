# What `cmake --install` puts where, in components:
#   runtime, development                      the product: its library; its headers, CMake package, .pc file and
#                                             plugin for Qt Designer
#   platform, platform_development            the same of the reference platform, which a maker's SDK replaces
#   platform_ui, platform_ui_development      its one library that is made of the toolkit
#   examples                                  the viewer with what a desktop is told of it, the sources of the examples and
#                                             their data
# Headers are included as in this tree: those of the platform, which are the same for every toolkit, are below one
# folder, the product's below another. Where the names below end in the toolkit's suffix, the products for several
# toolkits lie side by side.
set(VELMORA_INSTALL_HEADERS "${CMAKE_INSTALL_INCLUDEDIR}/velmora")
set(VELMORA_INSTALL_TOOLKIT_HEADERS "${CMAKE_INSTALL_INCLUDEDIR}/velmora-qt${VELMORA_TOOLKIT_SUFFIX}")
set(VELMORA_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/VelmoraIntegrationQt${VELMORA_TOOLKIT_SUFFIX}")
set(VELMORA_INSTALL_PLATFORM_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/VelmoraPlatform")
set(VELMORA_INSTALL_EXAMPLES "${CMAKE_INSTALL_DATADIR}/velmora${VELMORA_TOOLKIT_SUFFIX}/examples")

# velmora_install_headers(<component> <destination> <base folder> headers…): each keeps its folder below the base.
function(velmora_install_headers component destination base)
  foreach(header IN LISTS ARGN)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${base}/${header}" DESTINATION "${destination}/${folder}" COMPONENT ${component})
  endforeach()
endfunction()

# velmora_install_library(<target> <export set> <component> <component for development> <folder of its headers>)
function(velmora_install_library target set component development headers)
  install(TARGETS ${target} EXPORT ${set}
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${component} NAMELINK_COMPONENT ${development}
    INCLUDES DESTINATION "${headers}")
endfunction()

# velmora_install_pkgconfig(<template> <name> <component>): the prefix is told from the file's own place, so that
# the installation can be moved.
function(velmora_install_pkgconfig template name component)
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
