# What `cmake --install` puts in place for hosts: headers, libraries, a CMake package and pkg-config files.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# The includes of the installed headers run from here ("base/text.h"), as in the build tree.
set(RULEMESH_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/rulemesh")
set(RULEMESH_INSTALL_PACKAGEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/Rulemesh")
set(RULEMESH_INSTALL_QT_PLUGINDIR "${CMAKE_INSTALL_LIBDIR}/qt6/plugins" CACHE STRING
    "Where Qt looks for plugins, from the prefix on")

# A component of the package, as find_package names it, made up of layers:
#
#   rulemesh_add_component(Core rulemesh LAYERS base views ...)
#
# The host links Rulemesh::Core, which is the target named second, whether it installs us or builds us within its own
# project.
function(rulemesh_add_component component target)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "LAYERS")

    add_library(Rulemesh::${component} ALIAS ${target})
    set(targets ${target})
    foreach(layer IN LISTS arg_LAYERS)
        set_target_properties(rulemesh_${layer} PROPERTIES EXPORT_NAME ${layer})
        list(APPEND targets rulemesh_${layer})
    endforeach()
    list(REMOVE_DUPLICATES targets)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${component})

    if(NOT RULEMESH_INSTALL)
        return()
    endif()
    install(TARGETS ${targets} EXPORT Rulemesh${component}Targets)
    install(EXPORT Rulemesh${component}Targets NAMESPACE Rulemesh:: DESTINATION "${RULEMESH_INSTALL_PACKAGEDIR}")
    foreach(layer IN LISTS arg_LAYERS)
        install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${layer}" DESTINATION "${RULEMESH_INSTALL_INCLUDEDIR}"
            FILES_MATCHING PATTERN "*.h")
    endforeach()
endfunction()

# The pkg-config file NAME.pc from cmake/NAME.pc.in.
function(rulemesh_install_pkg_config name)
    # The prefix is told from the place of the file, so that an installed tree can be moved as a whole.
    file(RELATIVE_PATH RULEMESH_PREFIX_FROM_PC "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
    string(REGEX REPLACE "/$" "" RULEMESH_PREFIX_FROM_PC "${RULEMESH_PREFIX_FROM_PC}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/package/${name}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/package/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endfunction()

# The files by which hosts find the components.
function(rulemesh_install_package)
    set(folder "${PROJECT_BINARY_DIR}/package")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/RulemeshConfig.cmake.in" "${folder}/RulemeshConfig.cmake"
        INSTALL_DESTINATION "${RULEMESH_INSTALL_PACKAGEDIR}"
        NO_CHECK_REQUIRED_COMPONENTS_MACRO)
    # Before 1.0 a minor version may change what a host calls.
    write_basic_package_version_file("${folder}/RulemeshConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
    install(FILES "${folder}/RulemeshConfig.cmake" "${folder}/RulemeshConfigVersion.cmake"
        DESTINATION "${RULEMESH_INSTALL_PACKAGEDIR}")

    rulemesh_install_pkg_config(rulemesh)
    if(TARGET rulemesh_desktop)
        rulemesh_install_pkg_config(rulemesh-widgets)
    endif()
endfunction()
