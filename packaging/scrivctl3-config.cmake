# find_package(scrivctl3): the editor control as the imported target scrivctl3::scrivctl3. The target brings the include
# folder and the import library in the form of the linker at hand; $<TARGET_RUNTIME_DLLS:host> names the DLL.
if(NOT WIN32)
    set(scrivctl3_NOT_FOUND_MESSAGE "scrivctl3 is a control for 64-bit Windows")
    set(scrivctl3_FOUND FALSE)
    return()
endif()
if(NOT TARGET scrivctl3::scrivctl3)
    get_filename_component(scrivctl3_PREFIX "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
    # What libraries of the toolchain's own are called tells the form: .dll.a for GNU linkers, .lib for Microsoft's.
    if(CMAKE_IMPORT_LIBRARY_SUFFIX STREQUAL ".lib")
        set(scrivctl3_LIBRARY "${scrivctl3_PREFIX}/lib/scrivctl3.lib")
    else()
        set(scrivctl3_LIBRARY "${scrivctl3_PREFIX}/lib/libscrivctl3.dll.a")
    endif()
    if(NOT EXISTS "${scrivctl3_LIBRARY}")
        set(scrivctl3_NOT_FOUND_MESSAGE "this package lacks ${scrivctl3_LIBRARY}")
        set(scrivctl3_FOUND FALSE)
        return()
    endif()
    add_library(scrivctl3::scrivctl3 SHARED IMPORTED)
    set_target_properties(scrivctl3::scrivctl3 PROPERTIES
        IMPORTED_LOCATION "${scrivctl3_PREFIX}/bin/scrivctl3.dll"
        IMPORTED_IMPLIB "${scrivctl3_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${scrivctl3_PREFIX}/include")
    unset(scrivctl3_LIBRARY)
    unset(scrivctl3_PREFIX)
endif()
