# What the program needs beside itself on Windows, by name: everything is there, or the installation stops.
#
# VARNEL_WINDOWS_DLLS may be changed for a Qt that was built with other libraries; objdump, called by
# checkdlls.cmake while installing, names what is missing.
set(VARNEL_WINDOWS_DLLS
    Qt5Core Qt5Gui Qt5Network Qt5PrintSupport Qt5SerialPort Qt5Sql Qt5Svg Qt5Widgets
    libgcc_s_seh-1 libstdc++-6 libwinpthread-1
    CACHE STRING "DLLs of the Windows package, without their ending, but for Qwt's")
set(VARNEL_WINDOWS_PLUGINS
    platforms/qwindows styles/qwindowsvistastyle imageformats/qsvg imageformats/qico iconengines/qsvgicon
    printsupport/windowsprintersupport sqldrivers/qsqlite
    CACHE STRING "Qt plugins of the Windows package, without their ending")

execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll OUTPUT_VARIABLE compiler_dll
    OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-sysroot OUTPUT_VARIABLE compiler_root
    OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(compiler_dlls "${compiler_dll}" DIRECTORY)
get_filename_component(qwt_folder ${QWT_LIBRARY} DIRECTORY)
set(places ${VARNEL_WINDOWS_PREFIX} ${qwt_folder} ${qwt_folder}/.. ${compiler_dlls} ${compiler_root}
    ${compiler_root}/mingw /usr/x86_64-w64-mingw32)

# Sets `result` to the file; where there is none it is told once, and installing fails.
function(varnel_find_runtime result)
    cmake_parse_arguments(ARG "" "" "NAMES;IN" ${ARGN})
    list(GET ARG_NAMES 0 name)
    string(MAKE_C_IDENTIFIER "VARNEL_FILE_${name}" file)
    find_file(${file} NAMES ${ARG_NAMES} PATHS ${places} PATH_SUFFIXES ${ARG_IN} NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH)
    mark_as_advanced(${file})
    if(NOT ${file})
        message(WARNING "${name} is not found: the package will not be made.")
        install(CODE "message(FATAL_ERROR \"${name} was not found when the build was configured.\")")
    endif()
    set(${result} ${${file}} PARENT_SCOPE)
endfunction()

set(runtime "")
foreach(dll ${VARNEL_WINDOWS_DLLS})
    varnel_find_runtime(found NAMES ${dll}.dll IN bin lib .)
    list(APPEND runtime ${found})
endforeach()
varnel_find_runtime(found NAMES qwt-qt5.dll qwt.dll libqwt-qt5.dll libqwt.dll IN bin lib .)
list(APPEND runtime ${found})
list(FILTER runtime EXCLUDE REGEX "-NOTFOUND$")
install(FILES ${runtime} DESTINATION .)

foreach(plugin ${VARNEL_WINDOWS_PLUGINS})
    varnel_find_runtime(found NAMES ${plugin}.dll IN plugins lib/qt5/plugins lib/qt/plugins qt5/plugins)
    get_filename_component(folder ${plugin} DIRECTORY)
    if(found)
        install(FILES ${found} DESTINATION ${folder})
    endif()
endforeach()

string(REGEX REPLACE "-(g\\+\\+|c\\+\\+)(-posix)?(\\.exe)?$" "-objdump" default_objdump ${CMAKE_CXX_COMPILER})
find_program(VARNEL_OBJDUMP NAMES ${default_objdump} ${CMAKE_OBJDUMP} objdump)
install(CODE "set(objdump \"${VARNEL_OBJDUMP}\")")
install(SCRIPT ${CMAKE_CURRENT_SOURCE_DIR}/checkdlls.cmake)
