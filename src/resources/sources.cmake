# Icons are drawn as SVG and rendered while building; rcc reads them beside a
# copy of varnel.qrc in the build folder.
set(resource_folder ${CMAKE_CURRENT_BINARY_DIR}/resources)
file(GLOB icon_drawings CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/resources/icons/*.svg)
file(MAKE_DIRECTORY ${resource_folder}/icons)
configure_file(resources/varnel.qrc ${resource_folder}/varnel.qrc COPYONLY)
foreach(sheet application nostyle)
    configure_file(resources/${sheet}.qss ${resource_folder}/${sheet}.qss COPYONLY)
endforeach()
add_custom_command(OUTPUT ${resource_folder}/icons.stamp
    COMMAND rendericons ${resource_folder}/icons ${icon_drawings}
    COMMAND rendericons --ico ${resource_folder}/icons/Varnel.ico
        ${CMAKE_CURRENT_SOURCE_DIR}/resources/icons/varnel.svg
    COMMAND ${CMAKE_COMMAND} -E touch ${resource_folder}/icons.stamp
    DEPENDS rendericons ${icon_drawings}
    COMMENT "Rendering icons" VERBATIM)
add_custom_command(OUTPUT ${resource_folder}/qrc_varnel.cpp
    COMMAND Qt5::rcc --name varnel --output ${resource_folder}/qrc_varnel.cpp ${resource_folder}/varnel.qrc
    DEPENDS ${resource_folder}/icons.stamp ${resource_folder}/varnel.qrc
        ${resource_folder}/application.qss ${resource_folder}/nostyle.qss
    COMMENT "Packing resources" VERBATIM)
target_sources(varnel_gui PRIVATE
    ${resource_folder}/qrc_varnel.cpp
    resources/resources.cpp resources/resources.h
)
set_source_files_properties(${resource_folder}/qrc_varnel.cpp PROPERTIES SKIP_AUTOGEN ON)
# To be copied as application.qss beside the program by whoever wants the desktop's own look.
install(FILES resources/nostyle.qss DESTINATION ${CMAKE_INSTALL_DATADIR}/varnelgraph)

# The program looks for its sounds beside itself, where it is built as where it is installed.
foreach(sound aborted aborted_de aborted_pl end end_de end_pl error error_de error_pl v3_mp3)
    list(APPEND sound_files ${CMAKE_CURRENT_BINARY_DIR}/${sound}.wav)
endforeach()
add_custom_command(OUTPUT ${sound_files}
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/makesounds.py ${CMAKE_CURRENT_BINARY_DIR}
    DEPENDS ${PROJECT_SOURCE_DIR}/tools/makesounds.py
    COMMENT "Making sounds" VERBATIM)
add_custom_target(sounds ALL DEPENDS ${sound_files})
install(FILES ${sound_files} DESTINATION ${VARNEL_PROGRAM_DIR})
