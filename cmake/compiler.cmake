# Warnings, sanitizers and link rules that hold for the whole tree.

if(MSVC)
    add_compile_options(/W4 /WX /utf-8 /permissive-)
else()
    # A constructor's parameter may have the name of the member that it initializes, with either compiler.
    add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Werror
        $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>
        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>)
endif()

if(PAVANE_SANITIZE)
    add_compile_options(-fsanitize=${PAVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${PAVANE_SANITIZE})
    if(PAVANE_SANITIZE MATCHES "thread")
        # Its library has its own operators new and delete, which replace a test's failing allocator.
        add_link_options(-Wl,--allow-multiple-definition)
    endif()
endif()

if(WIN32)
    add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
    if(NOT MSVC)
        # One file is installed: the runtime is linked in.
        add_link_options(-static)
        if(NOT PAVANE_TWINS) # linking takes the square of the number of sections
            add_compile_options(-ffunction-sections -fdata-sections)
            add_link_options(-Wl,--gc-sections)
        endif()
    endif()
endif()
