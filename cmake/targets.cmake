# What all targets of this project have in common.

function(ym_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        COMPILE_WARNING_AS_ERROR ${YM_SDP_WERROR})
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
endfunction()

# A library of this project. Visibility alone can not keep instances of standard templates from being exported; the
# version script `map` does.
function(ym_library target export_name map)
    ym_target(${target})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${export_name}
        SOVERSION 1
        INSTALL_RPATH $ORIGIN
        POSITION_INDEPENDENT_CODE ON
        LINK_DEPENDS ${PROJECT_SOURCE_DIR}/${map})
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
    # Exported operations call each other too; nobody is meant to replace one of them from outside.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL SHARED_LIBRARY)
        target_link_options(${target} PRIVATE
            LINKER:-Bsymbolic-functions
            LINKER:--version-script=${PROJECT_SOURCE_DIR}/${map}
            # The tables that lead to other libraries are filled at load time and read-only from then on.
            LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack
            LINKER:--as-needed)
        # A sanitizer may leave its own symbols to the program.
        if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
            target_link_options(${target} PRIVATE LINKER:-z,defs)
        endif()
    endif()
endfunction()
