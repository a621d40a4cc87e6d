# The one place where compiler flags and the shape of a target are set.

add_library(mimkins_flags INTERFACE)
target_compile_options(mimkins_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 sees overlapping copies in `"x" + std::to_string(...)` where there are none (GCC bug 105651).
    target_compile_options(mimkins_flags INTERFACE -Wno-restrict)
endif()
if(MIMKINS_WARNINGS_AS_ERRORS)
    target_compile_options(mimkins_flags INTERFACE -Werror)
endif()
if(MIMKINS_SANITIZE)
    target_compile_options(
        mimkins_flags INTERFACE -fsanitize=${MIMKINS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    )
    target_link_options(mimkins_flags INTERFACE -fsanitize=${MIMKINS_SANITIZE})
endif()

# mimkins_units(TARGET UNITS unit... [PUBLIC lib...] [PRIVATE lib...])
#
# A static library of all sources that lie directly in the unit folders (sub-folders are units of their
# own). A unit folder that holds headers alone is fine, and a main.cpp is a program's, not the library's.
function(mimkins_units target)
    cmake_parse_arguments(ARG "" "" "UNITS;PUBLIC;PRIVATE" ${ARGN})
    set(sources "")
    foreach(unit IN LISTS ARG_UNITS)
        file(GLOB unit_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${unit}/*.cpp)
        list(FILTER unit_sources EXCLUDE REGEX "/main\\.cpp$")
        list(APPEND sources ${unit_sources})
    endforeach()
    if(sources)
        add_library(${target} STATIC ${sources})
        target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE mimkins_flags ${ARG_PRIVATE})
    else()
        add_library(${target} INTERFACE)
        target_include_directories(${target} INTERFACE ${CMAKE_CURRENT_SOURCE_DIR})
        target_link_libraries(${target} INTERFACE ${ARG_PUBLIC})
    endif()
endfunction()
