# embed_translations(<out-var> <base-name> <ts-folder> LANGUAGES <code>...)
# Compiles <ts-folder>/<base-name>_<code>.ts into .qm files and embeds them under
# ":/translation/<base-name>_<code>.qm". <out-var> receives the sources to add to a target.
# Identical translations are left out of the .qm files: the English ones then hold only what
# differs from the source texts, such as plural forms.
function(embed_translations out_var base_name ts_folder)
    cmake_parse_arguments(ARG "" "" "LANGUAGES" ${ARGN})
    set(ts_files)
    set(qrc_entries)
    foreach(language IN LISTS ARG_LANGUAGES)
        list(APPEND ts_files ${ts_folder}/${base_name}_${language}.ts)
        string(APPEND qrc_entries "        <file>${base_name}_${language}.qm</file>\n")
    endforeach()
    qt5_add_translation(qm_files ${ts_files} OPTIONS -silent -removeidentical)
    # The .qrc names the .qm files relative to itself, so it sits next to them. Written through
    # a copy so that a re-run of CMake does not make rcc run again.
    set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${base_name}_translations.qrc)
    file(WRITE ${qrc}.in
        "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n    <qresource prefix=\"/translation\">\n"
        "${qrc_entries}    </qresource>\n</RCC>\n")
    configure_file(${qrc}.in ${qrc} COPYONLY)
    qt5_add_resources(resources ${qrc})
    set(${out_var} ${qm_files} ${resources} PARENT_SCOPE)
endfunction()
