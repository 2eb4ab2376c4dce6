# SPDX-License-Identifier: MIT
# The compiler and linker flags that dpkg-buildpackage gives the package (debian/rules asks for
# hardening=+all), so that the suite runs the code users install rather than a look-alike.
# Included before project(), so the flags become the cache's first values; flags already in the
# cache or in the environment win, as they do for the package.
find_program(DPKG_BUILDFLAGS dpkg-buildflags REQUIRED)
set(ENV{DEB_BUILD_MAINT_OPTIONS} "hardening=+all")
macro(pinecove_debian_flag variable flag)
    execute_process(COMMAND ${DPKG_BUILDFLAGS} --get ${flag}
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
        OUTPUT_VARIABLE ${variable} OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endmacro()
pinecove_debian_flag(pinecove_cxxflags CXXFLAGS)
pinecove_debian_flag(pinecove_cppflags CPPFLAGS)
pinecove_debian_flag(pinecove_ldflags LDFLAGS)
if(NOT DEFINED CACHE{CMAKE_CXX_FLAGS} AND "$ENV{CXXFLAGS}" STREQUAL "")
    set(CMAKE_CXX_FLAGS "${pinecove_cppflags} ${pinecove_cxxflags}" CACHE STRING
        "Debian's flags for the package")
endif()
foreach(kind EXE SHARED MODULE)
    if(NOT DEFINED CACHE{CMAKE_${kind}_LINKER_FLAGS} AND "$ENV{LDFLAGS}" STREQUAL "")
        set(CMAKE_${kind}_LINKER_FLAGS "${pinecove_ldflags}" CACHE STRING
            "Debian's flags for the package")
    endif()
endforeach()
