# The program's texts in its languages, and Qt's own beside them so that standard buttons and dialogs speak
# the same. Those of the machine that builds do for any that the program is built for.
get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS OUTPUT_VARIABLE qt_translations
    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
get_filename_component(qt_tools ${qmake} DIRECTORY)
find_program(LRELEASE NAMES lrelease lrelease-qt5 HINTS ${VARNEL_HOST_TOOLS} ${qt_tools} /usr/lib/qt5/bin
    PATH_SUFFIXES bin REQUIRED)
find_path(QT_TRANSLATIONS qtbase_de.qm NO_CMAKE_FIND_ROOT_PATH REQUIRED
    HINTS ${qt_translations} ${Qt5_DIR}/../../../translations ${Qt5_DIR}/../../../share/qt5/translations
    PATHS /usr/share/qt5/translations)

set(translation_folder ${CMAKE_CURRENT_BINARY_DIR}/translations)
file(MAKE_DIRECTORY ${translation_folder})
set(translations "")
set(packed "")
foreach(language en pl de)
    set(texts ${PROJECT_SOURCE_DIR}/translations/varnelgraph_${language}.ts)
    set(own ${translation_folder}/varnelgraph_${language}.qm)
    add_custom_command(OUTPUT ${own} COMMAND ${LRELEASE} -silent ${texts} -qm ${own} DEPENDS ${texts}
        COMMENT "Packing the texts in ${language}" VERBATIM)
    list(APPEND translations ${own})
    string(APPEND packed "    <file>varnelgraph_${language}.qm</file>\n")
    if(language STREQUAL en)
        continue() # has nothing but its plurals
    endif()
    foreach(module qtbase qtserialport)
        set(theirs ${module}_${language}.qm)
        configure_file(${QT_TRANSLATIONS}/${theirs} ${translation_folder}/${theirs} COPYONLY)
        list(APPEND translations ${translation_folder}/${theirs})
        string(APPEND packed "    <file>${theirs}</file>\n")
    endforeach()
endforeach()
file(CONFIGURE OUTPUT ${translation_folder}/translations.qrc CONTENT
    "<RCC>\n<qresource prefix=\"/translations\">\n${packed}</qresource>\n</RCC>\n")
add_custom_command(OUTPUT ${translation_folder}/qrc_translations.cpp
    COMMAND Qt5::rcc --name translations --output ${translation_folder}/qrc_translations.cpp
        ${translation_folder}/translations.qrc
    DEPENDS ${translations} ${translation_folder}/translations.qrc
    COMMENT "Packing translations" VERBATIM)
target_sources(varnel_gui PRIVATE ${translation_folder}/qrc_translations.cpp)
set_source_files_properties(${translation_folder}/qrc_translations.cpp PROPERTIES SKIP_AUTOGEN ON)
