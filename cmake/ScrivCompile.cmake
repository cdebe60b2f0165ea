# The compile and link options of everything that is ours.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

# No path of the building machine in the log, in __FILE__ or in the debug information.
# (A generator expression, since the resource compiler is handed compile options too and knows none of these.)
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=;-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=>")

if(WIN32)
    # DWARF 4 is what winedbg reads. The protector needs its library at link time too.
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-gdwarf-4;-fstack-protector-strong>")
    add_link_options(-static -fstack-protector-strong -Wl,--no-insert-timestamp)
    add_compile_definitions(WINVER=0x0A00 _WIN32_WINNT=0x0A00)
endif()
if(SCRIV_SANITIZE)
    # Full optimization doubles the time of compiling with sanitizers, and no finding needs it; -g1 keeps the line numbers.
    set(CMAKE_C_FLAGS_RELWITHDEBINFO "-O1 -g1")
    set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)  # indexes of the library's own containers are checked as well
    add_link_options(-fsanitize=address,undefined)
endif()
if(SCRIV_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
if(SCRIV_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

function(scriv_compile_options target)
    target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Werror>")
    if(WIN32)
        target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:C,CXX>:-fno-ident>")
    endif()
endfunction()
