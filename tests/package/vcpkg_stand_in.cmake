# Stand-ins for the functions of vcpkg that the port calls, and a run of the port. They do what vcpkg's documentation
# says of them, as far as the port asks for it.
cmake_policy(VERSION 3.21)

function(vcpkg_extract_source_archive result keyword archive)
    set(folder ${CURRENT_PACKAGES_DIR}-source)
    file(REMOVE_RECURSE ${folder})
    file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${folder})
    file(GLOB only ${folder}/*)  # the one folder at the top of an archive is taken off
    set(${result} ${only} PARENT_SCOPE)
endfunction()

function(vcpkg_fixup_pkgconfig)
    file(GLOB_RECURSE files ${CURRENT_PACKAGES_DIR}/*.pc)
    if(NOT files)
        message(FATAL_ERROR "nothing to fix")
    endif()
endfunction()

function(vcpkg_install_copyright keyword file)
    configure_file(${file} ${CURRENT_PACKAGES_DIR}/share/scrivctl3/copyright COPYONLY)
endfunction()

include(${PORT}/portfile.cmake)
foreach(policy DLLS_IN_STATIC_LIBRARY ONLY_RELEASE_CRT ALLOW_OBSOLETE_MSVCRT)
    if(NOT VCPKG_POLICY_${policy} STREQUAL "enabled")
        message(FATAL_ERROR "vcpkg would refuse the port: ${policy}")
    endif()
endforeach()
