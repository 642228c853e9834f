# The programs that run while building, where the rest is built for another system: rendericons, which is the
# project's own, and Qt's, which a Qt for that system may bring for that system only.
set(VARNEL_HOST_TOOLS "" CACHE STRING
    "Folders with programs that run here: a native build of this tree, and where moc, rcc and uic are")

# Targets of Qt's own tools lead to those that run here, as far as the folders hold them.
foreach(tool moc rcc uic qmake)
    find_program(VARNEL_HOST_${tool} ${tool} PATHS ${VARNEL_HOST_TOOLS} PATH_SUFFIXES bin NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH)
    if(VARNEL_HOST_${tool} AND TARGET Qt5::${tool})
        set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION ${VARNEL_HOST_${tool}})
    endif()
endforeach()

add_executable(rendericons IMPORTED GLOBAL)
find_program(VARNEL_HOST_rendericons rendericons PATHS ${VARNEL_HOST_TOOLS} PATH_SUFFIXES tools/host host NO_DEFAULT_PATH
    NO_CMAKE_FIND_ROOT_PATH)
if(VARNEL_HOST_rendericons)
    set_target_properties(rendericons PROPERTIES IMPORTED_LOCATION ${VARNEL_HOST_rendericons})
else()
    # Built inside, with the compiler and the Qt of this machine.
    include(ExternalProject)
    set(host_folder ${PROJECT_BINARY_DIR}/host)
    ExternalProject_Add(hosttools
        SOURCE_DIR ${PROJECT_SOURCE_DIR}/tools/host
        BINARY_DIR ${host_folder}
        CMAKE_ARGS -DCMAKE_BUILD_TYPE=Release
        BUILD_ALWAYS ON
        BUILD_BYPRODUCTS ${host_folder}/rendericons
        INSTALL_COMMAND "")
    set_target_properties(rendericons PROPERTIES IMPORTED_LOCATION ${host_folder}/rendericons)
    add_dependencies(rendericons hosttools)
endif()
