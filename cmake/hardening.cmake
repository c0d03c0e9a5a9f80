# How a program at the top level is built beyond what its sources need: hardened against faults, and
# the same in every byte wherever it is built.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# What is built names no folder of the machine that built it.
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    check_pie_supported()
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    # The marks for control-flow protection, by processor.
    foreach(flag -fcf-protection=full -mbranch-protection=standard)
        string(MAKE_C_IDENTIFIER "rosetag_has${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            add_compile_options(${flag})
        endif()
    endforeach()
    add_compile_options(-fstack-protector-strong)
    add_link_options(LINKER:-z,relro,-z,now)
    # Checks sizes that the optimiser finds out, and asks for an optimised build.
    if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize|_FORTIFY_SOURCE")
        add_compile_options($<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
    endif()
endif()
