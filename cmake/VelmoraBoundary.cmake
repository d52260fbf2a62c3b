# What a library shows to others is said in two places. The export macro on a class makes its symbols
# visible; with them the compiler shows what it put into this library of other people's inline code
# and of classes inside an exported class. This list takes those away again.

# velmora_export_only(<target> CLASSES names… FUNCTIONS names… TYPES patterns…): of all that is visible,
# the dynamic symbol table shows the classes, with their type information, the functions and the type
# information of the types alone. A class inside a class is not part of it; it is told apart by its
# capital letter.
function(velmora_export_only target)
  cmake_parse_arguments(arg "" "" "CLASSES;FUNCTIONS;TYPES" ${ARGN})
  # A sanitizer needs symbols of its own.
  if(VELMORA_SANITIZE)
    return()
  endif()

  set(shown "")
  foreach(class IN LISTS arg_CLASSES)
    string(REGEX REPLACE ".*::" "" name "${class}")
    list(APPEND shown "${class}::${name}[^A-Za-z]*" "${class}::[^A-Z]*" "*thunk?to?${class}::[^A-Z]*" "*?for?${class}")
  endforeach()
  foreach(function IN LISTS arg_FUNCTIONS)
    list(APPEND shown "${function}[^A-Za-z]*")
  endforeach()
  foreach(type IN LISTS arg_TYPES)
    list(APPEND shown "*?for?${type}")
  endforeach()
  list(JOIN shown ";\n    " shown)

  set(map "${CMAKE_CURRENT_BINARY_DIR}/${target}.map")
  file(CONFIGURE OUTPUT "${map}" CONTENT "{\n  global: extern \"C++\" {\n    ${shown};\n  };\n  local: *;\n};\n")
  target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
endfunction()
