# Targets of the program: every folder of src has a core library, which links of Qt only Core (and Gui where it
# makes pictures), and where it shows something a ui library beside it.

add_library(tagwright_options INTERFACE)
target_compile_options(tagwright_options INTERFACE -Wall -Wextra -Wconversion -Werror)
target_compile_definitions(tagwright_options INTERFACE QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_TO_ASCII)
# What is made of the texts (babel/CMakeLists.txt) stands in folders of the same names.
target_include_directories(tagwright_options INTERFACE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_BINARY_DIR}/texts")
# ccache can only serve precompiled headers that carry their macros.
target_compile_options(tagwright_options INTERFACE -fpch-preprocess)
if(TAGWRIGHT_SANITIZE)
    target_compile_options(tagwright_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                      -fno-omit-frame-pointer)
    target_link_options(tagwright_options INTERFACE -fsanitize=address,undefined)
endif()

function(tagwright_precompiled target link header)
    file(WRITE "${CMAKE_BINARY_DIR}/pch/${target}.cpp" "// Owner of a shared precompiled header.\n")
    add_library(${target} OBJECT "${CMAKE_BINARY_DIR}/pch/${target}.cpp")
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${target} PRIVATE tagwright_options ${link})
    target_precompile_headers(${target} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/${header}")
endfunction()

tagwright_precompiled(tagwright_pch_core "Qt6::Core" CorePrecompiled.h)
tagwright_precompiled(tagwright_pch_ui "Qt6::Widgets;Qt6::Svg" UiPrecompiled.h)

# A library without widgets. NAME, then the sources; LINK what it may use of the project and of other libraries.
function(tagwright_core name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC tagwright_options Qt6::Core ${arg_LINK})
    if(NOT "Qt6::Gui" IN_LIST arg_LINK)
        target_precompile_headers(${name} REUSE_FROM tagwright_pch_core)
    endif()
endfunction()

# A library with widgets.
function(tagwright_ui name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC tagwright_options Qt6::Widgets Qt6::Svg ${arg_LINK})
    target_precompile_headers(${name} REUSE_FROM tagwright_pch_ui)
endfunction()
