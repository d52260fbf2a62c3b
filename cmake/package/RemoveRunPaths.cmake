# Run by CPack on what it has gathered, before it packs it.
file(GLOB_RECURSE files LIST_DIRECTORIES FALSE "${CPACK_TEMPORARY_DIRECTORY}/*/usr/lib/*")
foreach(file IN LISTS files)
  if(NOT IS_SYMLINK "${file}" AND file MATCHES "(\\.so\\.[0-9.]+|/viewer)$")
    file(RPATH_REMOVE FILE "${file}")
  endif()
endforeach()
