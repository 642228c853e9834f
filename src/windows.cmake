# What makes the program one for Windows: no console of its own, an icon, a version, a manifest.
set_target_properties(varnelgraph PROPERTIES WIN32_EXECUTABLE ON)
enable_language(RC)
set(icon_file ${resource_folder}/icons/Varnel.ico)
set(manifest_file ${PROJECT_SOURCE_DIR}/packaging/windows/varnelgraph.manifest)
set(resource_script ${CMAKE_CURRENT_BINARY_DIR}/varnelgraph.rc)
configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/varnelgraph.rc.in ${resource_script} @ONLY)
set_source_files_properties(${resource_script} PROPERTIES OBJECT_DEPENDS
    "${resource_folder}/icons.stamp;${manifest_file}")
target_sources(varnelgraph PRIVATE ${resource_script})
