# What every target of the project shares: the language, the warnings, where things land, and the
# functions that declare a library, its resources and its tests.

option(WB_TESTS "Build the tests" ON)
option(WB_BENCHMARKS "Build the benchmarks" ON)
option(WB_PRECOMPILE "Use precompiled headers" ON)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Programs are compiled like libraries, so that both can use the same precompiled headers.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE "-fPIC")
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
# Programs and libraries find each other from where they stand, so a build tree can be moved.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_BUILD_RPATH "$ORIGIN/../lib")

find_program(WB_CCACHE ccache)
if(WB_CCACHE)
    # Precompiled headers carry macros and times that ccache would otherwise refuse to reuse.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        "${WB_CCACHE}")
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

option(WB_SANITIZE "Address and undefined-behaviour sanitizers, without recovery" OFF)
if(WB_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()

add_library(wb_options INTERFACE)
target_compile_features(wb_options INTERFACE cxx_std_20)
target_compile_options(wb_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual
    -Wnon-virtual-dtor -Werror)

# What the build generates is nobody's to mend: one check that finds nothing there stands for none.
file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")

# One precompiled set of the standard headers for all libraries, one that adds the test framework.
file(WRITE "${CMAKE_BINARY_DIR}/generated/wb_empty.cpp.in" "// Carries the precompiled headers.\n")
configure_file("${CMAKE_BINARY_DIR}/generated/wb_empty.cpp.in" "${CMAKE_BINARY_DIR}/generated/wb_empty.cpp" COPYONLY)
set(WB_STANDARD_HEADERS <algorithm> <array> <charconv> <cmath> <cstdint> <filesystem> <fstream> <functional>
    <map> <memory> <optional> <span> <sstream> <string> <string_view> <unordered_map> <utility> <vector>)
function(wb_add_pch name)
    cmake_parse_arguments(ARG "" "" "HEADERS;LIBRARIES" ${ARGN})
    add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/generated/wb_empty.cpp")
    target_link_libraries(${name} PRIVATE wb_options ${ARG_LIBRARIES})
    if(WB_PRECOMPILE)
        target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
    endif()
endfunction()
wb_add_pch(wb_pch HEADERS ${WB_STANDARD_HEADERS})

function(wb_use_pch target pch)
    if(WB_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM ${pch})
    endif()
endfunction()

# wb_add_library(NAME [STATIC] SOURCES a.cpp ... [INCLUDE dir ...] [PRIVATE_INCLUDE dir ...]
#                [PUBLIC lib ...] [PRIVATE lib ...] [PCH target])
# makes the object library NAME_objects and of it the library NAME (shared unless STATIC). Tests of
# internal pieces link wb_internal_NAME: the objects and the private include folders.
function(wb_add_library name)
    cmake_parse_arguments(ARG "STATIC" "PCH" "SOURCES;INCLUDE;PRIVATE_INCLUDE;PUBLIC;PRIVATE" ${ARGN})
    list(TRANSFORM ARG_INCLUDE PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(TRANSFORM ARG_PRIVATE_INCLUDE PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    add_library(${name}_objects OBJECT ${ARG_SOURCES})
    target_include_directories(${name}_objects PUBLIC ${ARG_INCLUDE} PRIVATE ${ARG_PRIVATE_INCLUDE})
    target_link_libraries(${name}_objects PUBLIC ${ARG_PUBLIC} PRIVATE wb_options ${ARG_PRIVATE})
    if(ARG_PCH)
        wb_use_pch(${name}_objects ${ARG_PCH})
    else()
        wb_use_pch(${name}_objects wb_pch)
    endif()
    if(ARG_STATIC)
        add_library(${name} STATIC $<TARGET_OBJECTS:${name}_objects>)
    else()
        add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
        # What a library needs must be said here, not found by luck in whoever loads it.
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
    target_include_directories(${name} PUBLIC ${ARG_INCLUDE})
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})

    add_library(wb_internal_${name} INTERFACE)
    target_sources(wb_internal_${name} INTERFACE $<TARGET_OBJECTS:${name}_objects>)
    target_include_directories(wb_internal_${name} INTERFACE ${ARG_INCLUDE} ${ARG_PRIVATE_INCLUDE})
    target_link_libraries(wb_internal_${name} INTERFACE ${ARG_PUBLIC} ${ARG_PRIVATE})
endfunction()

# wb_add_resources(TARGET DIRECTORY [INTO]) brings DIRECTORY's files (catalogs/, dialogs/, units/, ...)
# to the build's resources/ folder (or its subfolder INTO), where the host looks from lib/../resources.
function(wb_add_resources target directory)
    cmake_path(ABSOLUTE_PATH directory NORMALIZE OUTPUT_VARIABLE source)
    cmake_path(APPEND CMAKE_BINARY_DIR "resources" "${ARGN}" OUTPUT_VARIABLE destination)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE "${source}" "${source}/*")
    set(copies)
    foreach(file IN LISTS files)
        set(copy "${destination}/${file}")
        add_custom_command(OUTPUT "${copy}"
            COMMAND "${CMAKE_COMMAND}" -E copy "${source}/${file}" "${copy}"
            DEPENDS "${source}/${file}" VERBATIM)
        list(APPEND copies "${copy}")
    endforeach()
    add_custom_target(${target}_resources ALL DEPENDS ${copies})
    add_dependencies(${target} ${target}_resources)
endfunction()

# wb_add_test(NAME SOURCES a.cpp ... LIBRARIES lib ... [LABELS window])
# makes the program NAME and tells CTest each of its tests. The label "window" marks programs that
# open windows; they run offscreen.
function(wb_add_test name)
    cmake_parse_arguments(ARG "" "PCH" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support")
    target_link_libraries(${name} PRIVATE wb_options ${ARG_LIBRARIES} wb_test_main)
    target_compile_definitions(${name} PRIVATE
        WB_SOURCE_DIR="${PROJECT_SOURCE_DIR}" WB_BINARY_DIR="${CMAKE_BINARY_DIR}")
    if(ARG_PCH)
        wb_use_pch(${name} ${ARG_PCH})
    else()
        wb_use_pch(${name} wb_test_pch)
    endif()
    set(labels)
    if(ARG_LABELS)
        set(labels LABELS "${ARG_LABELS}")
    endif()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST TEST_PREFIX "${name}."
        PROPERTIES ${labels} TIMEOUT 120
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
