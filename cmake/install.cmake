# Installed are the libraries, their public headers, the CMake package ym_sdp and the pkg-config files, as two
# components: ym_sdp_runtime is what a built application needs, ym_sdp_development what its build needs beyond that.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ym_sdp)

install(TARGETS ym_tovik ym_sdp ym_sdpcheck EXPORT ym_sdp
    LIBRARY COMPONENT ym_sdp_runtime NAMELINK_COMPONENT ym_sdp_development
    ARCHIVE COMPONENT ym_sdp_development
    FILE_SET HEADERS COMPONENT ym_sdp_development)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME ym_sdp_development)
install(EXPORT ym_sdp NAMESPACE ym:: DESTINATION ${package_dir} FILE ym_sdpTargets.cmake)

write_basic_package_version_file(${PROJECT_BINARY_DIR}/ym_sdpConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/ym_sdpConfig.cmake ${PROJECT_BINARY_DIR}/ym_sdpConfigVersion.cmake
    DESTINATION ${package_dir})

# Sets `variable` to the directory as a pkg-config file names it: seen from the prefix, which may be moved.
function(pkgconfig_dir variable dir)
    if(IS_ABSOLUTE ${dir})
        set(${variable} ${dir} PARENT_SCOPE)
    else()
        set(${variable} "\${prefix}/${dir}" PARENT_SCOPE)
    endif()
endfunction()

pkgconfig_dir(PKGCONFIG_LIBDIR ${CMAKE_INSTALL_LIBDIR})
pkgconfig_dir(PKGCONFIG_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})
file(RELATIVE_PATH PKGCONFIG_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" PKGCONFIG_TO_PREFIX "${PKGCONFIG_TO_PREFIX}")
foreach(name IN ITEMS ym_tovik ym_sdp ym_sdpcheck)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
