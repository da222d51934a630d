include_guard()

add_library(tvk_flags INTERFACE)
target_compile_options(
    tvk_flags
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wno-sign-conversion
              -Wnon-virtual-dtor
              -Woverloaded-virtual
              -Wold-style-cast
              -Wcast-qual
              -Werror)
if(CMAKE_UNITY_BUILD)
    # Files compiled as one look as if they shadowed each other, or included each other.
    target_compile_options(tvk_flags INTERFACE -Wno-shadow)
    target_compile_options(tvk_flags
                           INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=.*address")
    # Under the sanitizers GCC takes members of a variant for uninitialised.
    target_compile_options(tvk_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
target_compile_definitions(tvk_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                               QT_NO_KEYWORDS)
target_include_directories(tvk_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)

# The headers that most files share, compiled once. It is made with the definitions of the lowest
# room, so that every room's own only add to them; files include what they need all the same.
set(TVK_PRECOMPILE OFF)
if(TVK_PRECOMPILED_HEADER AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    set(TVK_PRECOMPILE ON)
    add_library(tvk_precompiled OBJECT ${CMAKE_SOURCE_DIR}/cmake/precompiled.cpp)
    target_link_libraries(tvk_precompiled PRIVATE tvk_flags Qt6::Core)
    foreach(module Gui Widgets)
        target_include_directories(
            tvk_precompiled SYSTEM
            PRIVATE $<TARGET_PROPERTY:Qt6::${module},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    target_precompile_headers(tvk_precompiled PRIVATE ${CMAKE_SOURCE_DIR}/cmake/precompiled.h)
endif()

function(tvk_precompile target)
    if(TVK_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM tvk_precompiled)
    endif()
endfunction()

# A room is one static library named tvk_<room>; its headers are included as "<room>/Name.h".
function(tvk_room name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(tvk_${name} STATIC ${ARG_SOURCES})
    set_target_properties(tvk_${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_link_libraries(tvk_${name} PUBLIC tvk_flags ${ARG_LINK})
    tvk_precompile(tvk_${name})
endfunction()

# A test program runs without a screen; one program is one ctest entry,
# so that its set-up is paid once.
function(tvk_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE tvk_flags ${ARG_LINK})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/data)
        target_compile_definitions(${name} PRIVATE TVK_TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data")
    endif()
    tvk_precompile(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 600)
endfunction()
