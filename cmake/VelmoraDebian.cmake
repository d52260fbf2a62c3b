# Debian packages: cpack -G DEB in a release build, or scripts/package. One package a component; those of
# the platform are left out when the engine is a maker's.
set(VELMORA_PACKAGE_MAINTAINER "The Velmora integration developers <maintainers@velmora.example>" CACHE STRING
    "Who answers for the packages: name and mail address")
mark_as_advanced(VELMORA_PACKAGE_MAINTAINER)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora-integration-qt${VELMORA_TOOLKIT_SUFFIX})
set(CPACK_PACKAGE_VENDOR "The Velmora integration developers")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
# Each package has a summary of its own, before which CPack would put this one.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VELMORA_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What is installed below /usr is found without a run path.
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/package/RemoveRunPaths.cmake")

# velmora_package(<component> <name> SECTION word SUMMARY text TEXT lines… [DEPENDS …] [RECOMMENDS …] [LIBRARY])
function(velmora_package component name)
  cmake_parse_arguments(arg "LIBRARY" "SECTION;SUMMARY" "TEXT;DEPENDS;RECOMMENDS" ${ARGN})
  string(TOUPPER ${component} upper)
  list(JOIN arg_DEPENDS ", " depends)
  list(JOIN arg_RECOMMENDS ", " recommends)
  foreach(setting IN ITEMS "NAME;${name}" "SECTION;${arg_SECTION}" "DEPENDS;${depends}" "RECOMMENDS;${recommends}")
    list(GET setting 0 key)
    list(GET setting 1 value)
    set(CPACK_DEBIAN_${upper}_PACKAGE_${key} "${value}" PARENT_SCOPE)
  endforeach()
  list(JOIN arg_TEXT "\n" text)
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${arg_SUMMARY}\n${text}" PARENT_SCOPE)
  if(arg_LIBRARY)
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/package/triggers" PARENT_SCOPE)
  endif()
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)

  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}" RENAME copyright
          COMPONENT ${component})
  install(FILES "${PROJECT_BINARY_DIR}/package/changelog.gz" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}"
          COMPONENT ${component})
endfunction()

file(ARCHIVE_CREATE OUTPUT "${PROJECT_BINARY_DIR}/package/changelog.gz" FORMAT raw COMPRESSION GZip COMPRESSION_LEVEL 9
     PATHS "${PROJECT_SOURCE_DIR}/cmake/package/changelog")

set(CPACK_COMPONENTS_ALL "")
set(same "(= ${PROJECT_VERSION})")
set(about "It gives the engine what it needs from a windowing toolkit: a manager, OpenGL"
          "drawing areas, interruption of long work, idle time, off-screen images,"
          "dialogs, cursors and printing.")

set(platform libvelmora-platform${PROJECT_VERSION_MAJOR})
# A name that ends in a digit is told from the version behind it.
set(qt qt${VELMORA_TOOLKIT_SUFFIX})
set(versioned ${qt}${PROJECT_VERSION_MAJOR})
if(VELMORA_TOOLKIT_SUFFIX)
  set(versioned ${qt}-${PROJECT_VERSION_MAJOR})
endif()
set(platform_ui libvelmora-platform-${versioned})
set(library libvlsdkintegrationmanager-${versioned})
if(NOT VELMORA_SDK_ROOT)
  set(needs_platform "${platform} ${same}" "${platform_ui} ${same}")
  set(needs_platform_development "libvelmora-platform-dev ${same}" "libvelmora-platform-${qt}-dev ${same}")
  velmora_package(platform ${platform} LIBRARY SECTION libs RECOMMENDS libgl1-mesa-dri
    SUMMARY "Reference platform of the Velmora integration for Qt"
    TEXT "An open engine that draws tables and grids, with the interfaces of the closed" "one.")
  velmora_package(platform_development libvelmora-platform-dev SECTION libdevel
    DEPENDS "${platform} ${same}" libboost-dev
    SUMMARY "Reference platform of the Velmora integration for Qt (headers)"
    TEXT "The headers of the engine's libraries, and the interfaces that the engine and" "the integration share.")
  velmora_package(platform_ui ${platform_ui} LIBRARY SECTION libs DEPENDS "${platform} ${same}"
    SUMMARY "Reference platform of the Velmora integration for Qt (dialogs)"
    TEXT "The platform's one library that is made of the toolkit.")
  velmora_package(platform_ui_development libvelmora-platform-${qt}-dev SECTION libdevel
    DEPENDS "${platform_ui} ${same}" "libvelmora-platform-dev ${same}"
    SUMMARY "Reference platform of the Velmora integration for Qt (dialogs, for development)"
    TEXT "What a program is linked with that uses the platform's dialogs.")
endif()
# All are loaded at run time; either of the first two is enough to draw images by software, the last is for 3D mice.
velmora_package(runtime ${library} LIBRARY SECTION libs DEPENDS ${needs_platform} RECOMMENDS "libegl1 | libosmesa6" libspnav0
  SUMMARY "Binds a visualisation engine to a Qt desktop application" TEXT ${about})
velmora_package(development libvlsdkintegrationmanager-${qt}-dev SECTION libdevel
  DEPENDS "${library} ${same}" ${needs_platform_development} libboost-dev ${VELMORA_TOOLKIT_PACKAGES}
  SUMMARY "Binds a visualisation engine to a Qt desktop application (headers)"
  TEXT ${about} "These are its headers, its CMake package, its pkg-config file and its plugin for" "Qt Designer.")
if(VELMORA_BUILD_EXAMPLES)
  velmora_package(examples velmora-integration-${qt}-examples SECTION graphics DEPENDS "${library} ${same}"
    SUMMARY "Example hosts of the Velmora integration for Qt"
    TEXT "A viewer of tables and grids, and the sources of two hosts with data to show.")
endif()

include(CPack)
