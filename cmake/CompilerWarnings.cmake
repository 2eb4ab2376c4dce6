# SPDX-License-Identifier: MIT
# pinecove_set_warnings(target): the project's warning set, errors on request, on the target's own
# sources. Code that Qt's tools generate (moc, the QML compiler's C++) is Qt's, and g++ finds
# shadowed parameters and maybe-null pointers in it that we can neither fix nor reach, so the
# set is given source by source, to the files in the source tree only.
function(pinecove_set_warnings target)
    if(MSVC)
        set(options /W4 /permissive-)
        if(PINECOVE_WARNINGS_AS_ERRORS)
            list(APPEND options /WX)
        endif()
    else()
        set(options
            -Wall -Wextra -Wpedantic
            -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
            -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
            -Wnull-dereference -Wcast-align -Wformat=2)
        if(PINECOVE_WARNINGS_AS_ERRORS)
            list(APPEND options -Werror)
        endif()
    endif()
    get_target_property(sources ${target} SOURCES)
    get_target_property(directory ${target} SOURCE_DIR)
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${directory} NORMALIZE OUTPUT_VARIABLE path)
        cmake_path(IS_PREFIX PROJECT_BINARY_DIR ${path} generated)
        if(NOT generated AND path MATCHES "\\.(cpp|mm)$")
            set_property(SOURCE ${path} TARGET_DIRECTORY ${target}
                APPEND PROPERTY COMPILE_OPTIONS ${options})
        endif()
    endforeach()
endfunction()
