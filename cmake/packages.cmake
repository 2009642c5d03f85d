# What `cpack` makes: Debian packages, of the shared libraries, of what it takes to build against them, and of the tool.
# script/packages builds them as Debian wants them.

if(NOT YM_SDP_INSTALL OR NOT BUILD_SHARED_LIBS)
    return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ym-sdp)
set(CPACK_PACKAGE_CONTACT "ym_sdp maintainers <maintainers@users.noreply.c-seed-29a2fbac.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/compress.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=") # what was built with one version runs with later ones too

# Every package has its licence and its changelog where Debian looks for them; other installations do without.
set(changelog ${PROJECT_BINARY_DIR}/changelog)
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in ${changelog} @ONLY)
execute_process(COMMAND gzip -9nf ${changelog} COMMAND_ERROR_IS_FATAL ANY)

macro(debian_package component name section description)
    set(doc ${CMAKE_INSTALL_DATAROOTDIR}/doc/${name})
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${doc} RENAME copyright COMPONENT ${component}
        EXCLUDE_FROM_ALL)
    install(FILES ${changelog}.gz DESTINATION ${doc} COMPONENT ${component} EXCLUDE_FROM_ALL)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_DESCRIPTION ${description})
endmacro()

debian_package(ym_sdp_runtime libym-sdp1 libs "library for session descriptions
The libraries ym_sdp, which reads and writes session descriptions (SDP,
RFC 8866) as lines or as objects, and ym_tovik, the strings, lists, patterns
and streams under it.")
set(CPACK_DEBIAN_YM_SDP_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_YM_SDP_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)

debian_package(ym_sdp_development libym-sdp-dev libdevel "library for session descriptions - development files
What it takes to build C++ programs against ym_sdp: headers, links to the
libraries, the static library ym_sdpcheck, which tells what becomes of a
description between text and objects, and files for CMake and pkg-config.")
set(CPACK_COMPONENT_YM_SDP_DEVELOPMENT_DEPENDS ym_sdp_runtime)

if(TARGET ymsdp)
    debian_package(ym_sdp_tool ymsdp utils "tool for session descriptions
Shows, checks, rewrites, edits, cleans and hides session descriptions (SDP,
RFC 8866), and chooses the formats that they offer.")
    set(CPACK_COMPONENT_YM_SDP_TOOL_DEPENDS ym_sdp_runtime)
    set(CPACK_DEBIAN_YM_SDP_TOOL_PACKAGE_SHLIBDEPS ON)
endif()

include(CPack)
