# The sources of the style tree, for the engine and for fuzzers, which compile them for themselves.
set(VELMORA_STYLE_SOURCES
  StyleDefaults.cpp
  StylePath.cpp
  StyleTree.cpp
  StyleWords.cpp
  VelArgList.cpp
  VelStyle.cpp)
list(TRANSFORM VELMORA_STYLE_SOURCES PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
