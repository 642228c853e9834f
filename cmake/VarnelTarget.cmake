# Flags that every target of the project is built with.
#
# -ffp-contract=off: the derived series are defined step by step; a fused multiply-add would change their last
# bit from machine to machine.
function(varnel_target target)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING)
    target_compile_options(${target} PRIVATE -ffp-contract=off)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
            -Wno-sign-conversion -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor -Wundef -Wcast-qual)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${target} PRIVATE -Wsuggest-override)
        endif()
        if(VARNEL_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
        if(VARNEL_SANITIZE)
            target_compile_options(${target} PRIVATE -fsanitize=${VARNEL_SANITIZE} -fno-omit-frame-pointer
                -fno-sanitize-recover=all)
            target_link_options(${target} PRIVATE -fsanitize=${VARNEL_SANITIZE})
        endif()
    endif()
endfunction()

# A library of the house: varnel_library(NAME [MOC] SOURCES... LINK libs...)
function(varnel_library target)
    cmake_parse_arguments(ARG "MOC" "" "LINK" ${ARGN})
    add_library(${target} STATIC ${ARG_UNPARSED_ARGUMENTS})
    varnel_target(${target})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${target} PUBLIC ${ARG_LINK})
    if(ARG_MOC)
        set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
    endif()
endfunction()

# Lets the sources of a target be compiled together, eight of a folder at a time: most of what one costs are
# the library's headers, which all of them include. ALONE are those whose unnamed namespaces hold names that
# others of their folder have, too.
function(varnel_group_sources target)
    cmake_parse_arguments(ARG "" "" "ALONE" ${ARGN})
    if(NOT VARNEL_GROUPS)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(SORT sources)
    foreach(source ${sources})
        get_filename_component(folder ${source} DIRECTORY)
        if(source IN_LIST ARG_ALONE OR IS_ABSOLUTE ${source})
            continue()
        endif()
        string(MAKE_C_IDENTIFIER "group_${folder}" group)
        list(APPEND ${group} ${source})
        list(LENGTH ${group} count)
        math(EXPR part "(${count} - 1) / 8")
        set_property(SOURCE ${source} PROPERTY UNITY_GROUP ${group}_${part})
    endforeach()
endfunction()

# Has these headers, as most sources of the target include them, read once. With -fpch-preprocess ccache knows
# what GCC compiles (./dev tells it the rest).
function(varnel_read_once target)
    if(VARNEL_HEADERS)
        target_precompile_headers(${target} PRIVATE ${ARGN})
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endfunction()
