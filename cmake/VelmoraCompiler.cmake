# One way to compile everything that is our own.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

# All programs and libraries of the build tree side by side, so that they find each other.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN:$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

find_program(VELMORA_CCACHE ccache)
mark_as_advanced(VELMORA_CCACHE)
if(VELMORA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this it keeps nothing of what includes precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${VELMORA_CCACHE}")
  add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess>)
endif()

add_library(velmora_compiler INTERFACE)
target_compile_options(velmora_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2
  # The Qt interface this library is written against is Qt 4's; Qt 5 has it, marked as deprecated.
  -Wno-deprecated-declarations
  $<$<BOOL:${VELMORA_WARNINGS_AS_ERRORS}>:-Werror>)
# For code of which each product and sum is to be rounded as it is written, whatever else the builder asks
# for. Fused into one step, which some processors can do, sizes on a boundary would fall to the other side.
set(VELMORA_ROUND_EACH_STEP -fno-fast-math -ffp-contract=off)

# The sanitizers leave symbols open for their run-time library.
if(NOT VELMORA_SANITIZE)
  target_link_options(velmora_compiler INTERFACE LINKER:--no-undefined)
endif()

if(VELMORA_SANITIZE)
  add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VELMORA_SANITIZE})
  target_sources(velmora_compiler INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${CMAKE_CURRENT_LIST_DIR}/KeepLibraries.cpp>)
endif()
