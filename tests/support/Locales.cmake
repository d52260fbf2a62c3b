# Locales other than the builder's. They are generated for the tests, because a machine need not have them.
set(VELMORA_LOCALES "${PROJECT_BINARY_DIR}/tests/locales")
foreach(locale de_DE en_US ja_JP)
  add_custom_command(OUTPUT "${VELMORA_LOCALES}/${locale}.UTF-8/LC_NUMERIC"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${VELMORA_LOCALES}"
    COMMAND localedef --no-archive -i ${locale} -f UTF-8 "${VELMORA_LOCALES}/${locale}.UTF-8"
    VERBATIM)
  list(APPEND made "${VELMORA_LOCALES}/${locale}.UTF-8/LC_NUMERIC")
endforeach()
add_custom_target(velmora_test_locales DEPENDS ${made})

# velmora_add_test_in_locale(<name> <locale> SOURCES files… LIBRARIES targets… [LANGUAGE languages])
function(velmora_add_test_in_locale name locale)
  cmake_parse_arguments(arg "" "LANGUAGE" "SOURCES;LIBRARIES" ${ARGN})
  velmora_add_test(${name} SOURCES ${arg_SOURCES} "${PROJECT_SOURCE_DIR}/tests/support/LocaleOfTheEnvironment.cpp"
                   LIBRARIES ${arg_LIBRARIES})
  add_dependencies(${name} velmora_test_locales)
  set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "LOCPATH=${VELMORA_LOCALES}" "LC_ALL=${locale}.UTF-8"
               "LANGUAGE=${arg_LANGUAGE}")
endfunction()
