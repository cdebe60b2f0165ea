# The DLL and its two import libraries. What it exports is said by the .def file and by nothing else.
# Nothing in the DLL calls the exports, so the control goes in as objects: out of an archive none would be linked.
add_library(scrivctl3 SHARED
    ${CMAKE_SOURCE_DIR}/api/scrivctl3.def
    ${CMAKE_SOURCE_DIR}/api/DllMain.cpp
    ${CMAKE_SOURCE_DIR}/api/RuntimeReserve.cpp
    ${CMAKE_CURRENT_BINARY_DIR}/version.rc
    $<TARGET_OBJECTS:scriv_control>)
scriv_compile_options(scrivctl3)
target_link_libraries(scrivctl3 PRIVATE scriv_control scriv_engine)
set_target_properties(scrivctl3 PROPERTIES
    PREFIX ""
    VERSION ${PROJECT_VERSION}
    LINKER_LANGUAGE CXX
    ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
target_include_directories(scrivctl3 INTERFACE ${CMAKE_SOURCE_DIR}/include)
add_library(scrivctl3::scrivctl3 ALIAS scrivctl3)  # the name that users of the package know
# What the linker took from where: the notices of the package are checked against it.
target_link_options(scrivctl3 PRIVATE -Wl,-Map,${CMAKE_BINARY_DIR}/scrivctl3.map)

# Users get the DLL without debug information; debuggers and crash traces find it in the file beside it.
# (-p: without it each step would put the time of day into the header, and no two builds were the same.)
add_custom_command(TARGET scrivctl3 POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} -p --only-keep-debug $<TARGET_FILE:scrivctl3> $<TARGET_FILE:scrivctl3>.debug
    COMMAND ${CMAKE_STRIP} -p $<TARGET_FILE:scrivctl3>
    COMMAND ${CMAKE_OBJCOPY} -p --add-gnu-debuglink=scrivctl3.dll.debug scrivctl3.dll
    WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
    VERBATIM)

# The library for the Microsoft linker: LLVM's tool writes the short form that its own does. Only hosts built with that
# linker need it, so a machine without LLVM builds all the rest.
find_program(SCRIV_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 PATHS /usr/lib/llvm-14/bin)
if(SCRIV_DLLTOOL)
    set(msvc_lib ${CMAKE_BINARY_DIR}/lib/scrivctl3.lib)
    add_custom_command(OUTPUT ${msvc_lib}
        COMMAND ${SCRIV_DLLTOOL} -m i386:x86-64 -d ${CMAKE_SOURCE_DIR}/api/scrivctl3.def -l ${msvc_lib}
        DEPENDS ${CMAKE_SOURCE_DIR}/api/scrivctl3.def
        VERBATIM)
    add_custom_target(scrivctl3_msvc_lib ALL DEPENDS ${msvc_lib})
endif()
