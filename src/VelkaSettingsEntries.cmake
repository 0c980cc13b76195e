# SPDX-FileCopyrightText: 2026 The libvelkasettings authors
# SPDX-License-Identifier: LGPL-2.1-or-later

# velka_settings_install_entries(FILES file... [CATALOG name TRANSLATIONS file.ts...]
#                                [PAGES file... [PAGES_DESTINATION directory]] [VOCABULARY file])
#
# Files can be patterns. Installs the registration files FILES under names with a hash of their content, so that running
# programs follow an upgrade. Compiles the TRANSLATIONS, named NAME-LANG.ts or LANG.ts, into the catalog NAME-LANG.qm.
# The engineering English, NAME_eng_en.qm, comes from NAME_eng_en.ts or, without that, from the registration files.
# Installs the PAGES into PAGES_DESTINATION, by default /usr/share/<name of the project>. Adds a test that checks the
# files strictly and, if the preview is installed, one that opens every page. Both use the VOCABULARY of a host, and not
# that of the build system.
function(velka_settings_install_entries)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "CATALOG;PAGES_DESTINATION;VOCABULARY" "FILES;TRANSLATIONS;PAGES")
    _velka_settings_check_arguments()
    if(NOT arg_PAGES_DESTINATION)
        set(arg_PAGES_DESTINATION /usr/share/${PROJECT_NAME})
    endif()
    _velka_settings_absolute(files ${arg_FILES})
    if(NOT files)
        message(FATAL_ERROR "velka_settings_install_entries: no file matches ${arg_FILES}")
    endif()
    list(GET files 0 first_file)
    get_filename_component(name ${first_file} NAME_WLE)
    string(REGEX REPLACE "[^A-Za-z0-9_.+-]" "_" name ${name}) # of targets
    _velka_settings_absolute(pages ${arg_PAGES})
    _velka_settings_install_files()
    set(catalogs)
    set(catalogs_dir ${CMAKE_CURRENT_BINARY_DIR}/${name}-translations)
    if(arg_CATALOG)
        _velka_settings_compile_catalogs()
    endif()
    install(FILES ${catalogs} DESTINATION ${VelkaSettings_TRANSLATIONS_DIR})
    install(FILES ${pages} DESTINATION ${arg_PAGES_DESTINATION})
    _velka_settings_add_tests()
endfunction()

# The functions below share the variables of the one above.

# Sets the result to the absolute names of files, of which each may be a pattern.
function(_velka_settings_absolute result)
    set(absolute)
    foreach(file ${ARGN})
        get_filename_component(file ${file} ABSOLUTE)
        if(file MATCHES "[*?]")
            file(GLOB file CONFIGURE_DEPENDS ${file})
        endif()
        list(APPEND absolute ${file})
    endforeach()
    set(${result} ${absolute} PARENT_SCOPE)
endfunction()

# Sets the result to the language in the name of a translation, NAME-LANG.ts or LANG.ts.
function(_velka_settings_language result translation)
    get_filename_component(language ${translation} NAME_WLE)
    string(FIND "${language}" "${arg_CATALOG}" place)
    if(place EQUAL 0)
        string(LENGTH "${arg_CATALOG}" length)
        string(SUBSTRING "${language}" ${length} -1 language)
        string(REGEX REPLACE "^[-_]" "" language "${language}")
    endif()
    if(NOT language MATCHES "^([a-z][a-z][a-z]?([-_][A-Z][a-z]+)?([-_][A-Z0-9]+)?|eng_en)$")
        message(FATAL_ERROR "velka_settings_install_entries: the name of \"${translation}\" has no language")
    endif()
    string(REPLACE - _ language ${language})
    set(${result} ${language} PARENT_SCOPE)
endfunction()

function(_velka_settings_check_arguments)
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_FILES)
        message(FATAL_ERROR "velka_settings_install_entries needs FILES: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(arg_TRANSLATIONS AND NOT arg_CATALOG)
        message(FATAL_ERROR "velka_settings_install_entries needs the CATALOG of the TRANSLATIONS")
    endif()
    if(NOT VELKA_SETTINGS_TOOL)
        message(FATAL_ERROR "velka-settings is missing: install velka-settings-tools, or set VELKA_SETTINGS_TOOL")
    endif()
endfunction()

# Installs with the tool, which also removes earlier versions, and lists the files in the manifest.
function(_velka_settings_install_files)
    string(REPLACE ";" "\" \"" quoted "${files}")
    install(CODE "
        set(directory \"${VelkaSettings_ENTRIES_DIR}\")
        execute_process(COMMAND \"${VELKA_SETTINGS_TOOL}\" install --into \"\$ENV{DESTDIR}\${directory}\" \"${quoted}\"
            RESULT_VARIABLE result OUTPUT_VARIABLE names)
        if(result)
            message(FATAL_ERROR \"The registration files cannot be installed\")
        endif()
        string(REGEX MATCHALL \"[^\\n]+\" names \"\${names}\")
        foreach(name \${names})
            message(STATUS \"Installing: \$ENV{DESTDIR}\${directory}/\${name}\")
            list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${directory}/\${name}\")
        endforeach()")
endfunction()

function(_velka_settings_compile_catalogs)
    find_package(Qt5LinguistTools 5.15 REQUIRED)
    set(engineering ${catalogs_dir}/${arg_CATALOG}_eng_en.ts)
    set(has_engineering NO)
    _velka_settings_absolute(translations ${arg_TRANSLATIONS})
    foreach(translation ${translations})
        _velka_settings_language(language ${translation})
        if(language STREQUAL eng_en)
            set(has_engineering YES)
            set(engineering ${translation})
        else()
            _velka_settings_compile_catalog(${translation} ${arg_CATALOG}-${language})
        endif()
    endforeach()
    if(NOT has_engineering)
        add_custom_command(OUTPUT ${engineering}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${catalogs_dir}
            COMMAND ${VELKA_SETTINGS_TOOL} translate extract ${files} -o ${engineering}
            DEPENDS ${files} VERBATIM)
    endif()
    _velka_settings_compile_catalog(${engineering} ${arg_CATALOG}_eng_en)
    set(catalogs ${catalogs} PARENT_SCOPE)
endfunction()

# Compiles a translation into a catalog. Texts that are not translated are left out: lrelease would take the engineering
# English for them, and they would seem to be translated.
function(_velka_settings_compile_catalog translation catalog)
    set(compiled ${catalogs_dir}/${catalog}.qm)
    set(translated ${catalogs_dir}/translated/${catalog}.ts)
    add_custom_command(OUTPUT ${compiled}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${catalogs_dir}/translated
        COMMAND Qt5::lconvert -no-untranslated -i ${translation} -o ${translated}
        COMMAND Qt5::lrelease -silent -idbased ${translated} -qm ${compiled}
        DEPENDS ${translation} VERBATIM)
    set(catalogs ${catalogs} ${compiled} PARENT_SCOPE)
endfunction()

function(_velka_settings_add_tests)
    set(root ${CMAKE_CURRENT_BINARY_DIR}/${name}-root)
    set(to_catalogs ${root}${VelkaSettings_TRANSLATIONS_DIR})
    set(to_pages ${root}${arg_PAGES_DESTINATION})
    # A root as that of a package, for the preview
    set(copy_catalogs)
    if(catalogs)
        set(copy_catalogs COMMAND ${CMAKE_COMMAND} -E copy ${catalogs} ${to_catalogs})
    endif()
    set(vocabulary --no-system-vocabulary)
    if(arg_VOCABULARY)
        get_filename_component(host ${arg_VOCABULARY} ABSOLUTE)
        set(vocabulary --vocabulary ${host})
    endif()
    set(copy_pages)
    if(pages)
        set(copy_pages COMMAND ${CMAKE_COMMAND} -E copy ${pages} ${to_pages})
    endif()
    add_custom_command(OUTPUT ${root}.stamp
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${root}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${to_catalogs} ${to_pages}
        COMMAND ${VELKA_SETTINGS_TOOL} install --into ${root}${VelkaSettings_ENTRIES_DIR} ${files}
        ${copy_catalogs} ${copy_pages}
        COMMAND ${CMAKE_COMMAND} -E touch ${root}.stamp
        DEPENDS ${files} ${catalogs} ${pages} VERBATIM)
    add_custom_target(${name}-entries ALL DEPENDS ${root}.stamp)
    add_test(NAME ${name}_entries_check
        COMMAND ${VELKA_SETTINGS_TOOL} check --strict ${vocabulary} --translations ${to_catalogs} ${files})
    if(VelkaSettings_HAS_PREVIEW)
        add_test(NAME ${name}_entries_preview COMMAND ${VELKA_SETTINGS_TOOL} preview --smoke-test ${vocabulary} ${root})
    endif()
endfunction()
