# The Qt toolkit behind one target, velmora_toolkit.
add_library(velmora_toolkit INTERFACE)
target_compile_definitions(velmora_toolkit INTERFACE QT_NO_KEYWORDS)
set_target_properties(velmora_toolkit PROPERTIES EXPORT_NAME toolkit)

# What the installed package asks for to have the same toolkit again, for CMake and for pkg-config.
if(VELMORA_QT_MAJOR EQUAL 5)
  set(modules Core Gui Widgets OpenGL PrintSupport X11Extras)
  find_package(Qt5 5.9 REQUIRED COMPONENTS ${modules})
  list(JOIN modules " " VELMORA_FIND_TOOLKIT)
  set(VELMORA_FIND_TOOLKIT "find_dependency(Qt5 5.9 COMPONENTS ${VELMORA_FIND_TOOLKIT})")
  list(TRANSFORM modules PREPEND Qt5 OUTPUT_VARIABLE VELMORA_PC_TOOLKIT)
  target_link_libraries(velmora_toolkit INTERFACE
    Qt5::Core Qt5::Gui Qt5::Widgets Qt5::OpenGL Qt5::PrintSupport Qt5::X11Extras)
elseif(VELMORA_QT_MAJOR EQUAL 4)
  find_package(Qt4 4.8 REQUIRED COMPONENTS QtCore QtGui QtOpenGL)
  set(VELMORA_FIND_TOOLKIT "find_dependency(Qt4 4.8 COMPONENTS QtCore QtGui QtOpenGL)")
  set(VELMORA_PC_TOOLKIT QtCore QtGui QtOpenGL)
  target_link_libraries(velmora_toolkit INTERFACE Qt4::QtCore Qt4::QtGui Qt4::QtOpenGL)
else()
  message(FATAL_ERROR "VELMORA_QT_MAJOR is \"${VELMORA_QT_MAJOR}\"; set it to 4 or 5.")
endif()

# Generates the sources of Qt resource files. Their tree has format version 1, the only one that both
# toolkits write and read.
function(velmora_add_resources out)
  if(VELMORA_QT_MAJOR EQUAL 5)
    qt5_add_resources(result ${ARGN} OPTIONS --format-version 1)
  else()
    qt4_add_resources(result ${ARGN})
  endif()
  set(${out} ${result} PARENT_SCOPE)
endfunction()
