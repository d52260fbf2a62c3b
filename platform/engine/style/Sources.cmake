# The sources of the style tree and of its entry points, for the engine and for fuzzers, which compile them for themselves.
set(VELMORA_STYLE_SOURCES
  StyleDefaults.cpp
  StylePath.cpp
  StyleTree.cpp
  StyleWords.cpp
  ../api/ArgListCalls.cpp
  ../api/StyleCalls.cpp)
list(TRANSFORM VELMORA_STYLE_SOURCES PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
