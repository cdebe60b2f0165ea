# The port takes the control as it was built: scrivctl3-VERSION-win64.zip beside this file.
set(archive "${CMAKE_CURRENT_LIST_DIR}/scrivctl3-${VERSION}-win64.zip")
if(NOT EXISTS "${archive}")
    message(FATAL_ERROR "Put scrivctl3-${VERSION}-win64.zip into ${CMAKE_CURRENT_LIST_DIR} first.")
endif()
vcpkg_extract_source_archive(package ARCHIVE "${archive}")

# One DLL for every triplet: it brings its own runtime, linked in, and calls the system's msvcrt.dll.
set(VCPKG_POLICY_DLLS_IN_STATIC_LIBRARY enabled)
set(VCPKG_POLICY_ONLY_RELEASE_CRT enabled)
set(VCPKG_POLICY_ALLOW_OBSOLETE_MSVCRT enabled)

file(INSTALL "${package}/include/" DESTINATION "${CURRENT_PACKAGES_DIR}/include")
set(trees "${CURRENT_PACKAGES_DIR}")
if(NOT VCPKG_BUILD_TYPE)
    list(APPEND trees "${CURRENT_PACKAGES_DIR}/debug")
endif()
foreach(tree IN LISTS trees)
    file(INSTALL "${package}/bin/scrivctl3.dll" DESTINATION "${tree}/bin")
    file(INSTALL "${package}/lib/" DESTINATION "${tree}/lib")
endforeach()
file(INSTALL "${package}/share/scrivctl3/" "${CMAKE_CURRENT_LIST_DIR}/usage"
    DESTINATION "${CURRENT_PACKAGES_DIR}/share/scrivctl3")
vcpkg_fixup_pkgconfig()
vcpkg_install_copyright(FILE_LIST "${package}/share/doc/scrivctl3/NOTICES.txt")
