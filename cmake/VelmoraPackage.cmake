# The package for adopters: find_package(VelmoraIntegrationQt) and pkg-config velmora-integration-qt, with the
# suffix of the toolkit.
include(CMakePackageConfigHelpers)
set(package "${PROJECT_SOURCE_DIR}/cmake/package")
set(name VelmoraIntegrationQt${VELMORA_TOOLKIT_SUFFIX})

install(TARGETS velmora_toolkit EXPORT VelmoraIntegrationQt)
install(EXPORT VelmoraIntegrationQt NAMESPACE Velmora:: FILE VelmoraIntegrationQt${VELMORA_TOOLKIT_SUFFIX}Targets.cmake
        DESTINATION "${VELMORA_INSTALL_CMAKE}" COMPONENT development)
configure_package_config_file("${package}/VelmoraIntegrationQtConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/${name}Config.cmake"
  INSTALL_DESTINATION "${VELMORA_INSTALL_CMAKE}" PATH_VARS VELMORA_INSTALL_HEADERS VELMORA_INSTALL_PLATFORM_CMAKE)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/${name}ConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/package/${name}Config.cmake" "${PROJECT_BINARY_DIR}/package/${name}ConfigVersion.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/VelmoraSdkTargets.cmake"
        DESTINATION "${VELMORA_INSTALL_CMAKE}" COMPONENT development)

# A maker's SDK brings no .pc file; its place is a variable that pkg-config can be told otherwise.
set(pc_requires ${VELMORA_PC_TOOLKIT})
if(VELMORA_SDK_ROOT)
  file(RELATIVE_PATH sdk_headers "${VELMORA_SDK_ROOT}" "${velmora_sdk_include}")
  get_filename_component(sdk_libraries "${velmora_sdk_velengine}" DIRECTORY)
  file(RELATIVE_PATH sdk_libraries "${VELMORA_SDK_ROOT}" "${sdk_libraries}")
  set(VELMORA_PC_SDK "sdkdir=${VELMORA_SDK_ROOT}\n")
  set(VELMORA_PC_CFLAGS " -I\${sdkdir}/${sdk_headers}")
  string(CONCAT VELMORA_PC_LIBS " -L\${sdkdir}/${sdk_libraries} -Wl,-rpath-link,\${sdkdir}/${sdk_libraries}"
         " -lvlsdkintegrationmanager -lvltoolbox -lvlsdkbase -lvelengine -lexception")
else()
  list(PREPEND pc_requires "velmora-platform = ${PROJECT_VERSION}")
endif()
list(JOIN pc_requires ", " VELMORA_PC_REQUIRES)
velmora_install_pkgconfig("${package}/velmora-integration-qt.pc.in" velmora-integration-qt${VELMORA_TOOLKIT_SUFFIX}.pc
                          development)
