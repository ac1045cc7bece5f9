# Writes the version and the date of the build for "Informazioni su vorna": `git describe` of
# the sources, or the project's version where they are no git clone (a tarball) or git is
# missing. Run at every build with SOURCE_DIR, FALLBACK (the project's version), STATIC_RUNTIME
# (true or false) and OUTPUT; the file is rewritten only when its text changes, so an unchanged
# build compiles nothing again.
cmake_minimum_required(VERSION 3.25)
set(version "${FALLBACK}")
find_program(git git)
if(git)
    # Only a clone of vorna itself: sources unpacked inside another repository are not.
    execute_process(COMMAND "${git}" rev-parse --show-toplevel
        WORKING_DIRECTORY "${SOURCE_DIR}" OUTPUT_VARIABLE top OUTPUT_STRIP_TRAILING_WHITESPACE
        ERROR_QUIET)
    file(REAL_PATH "${SOURCE_DIR}" source)
    if(top)
        file(REAL_PATH "${top}" top)
    endif()
endif()
if(git AND top STREQUAL source)
    execute_process(COMMAND "${git}" describe --tags --always --dirty
        WORKING_DIRECTORY "${SOURCE_DIR}" RESULT_VARIABLE failed
        OUTPUT_VARIABLE described OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(NOT failed AND described MATCHES "^[0-9a-f]+(-dirty)?$")
        # No tag yet: the project's version and the commit.
        set(version "${FALLBACK}-g${described}")
    elseif(NOT failed AND described)
        set(version "${described}")
    endif()
endif()
# SOURCE_DATE_EPOCH, when set, stands for the date (reproducible builds).
string(TIMESTAMP date "%d/%m/%Y" UTC)
string(REGEX REPLACE "[\\\"]" "" version "${version}")
file(CONFIGURE OUTPUT "${OUTPUT}" CONTENT "// Written by cmake/build_info.cmake at each build.
#include \"app/build_info.h\"

namespace vorna {

std::string_view VornaVersion() {
    return \"@version@\";
}

std::string_view VornaBuildDate() {
    return \"@date@\";
}

bool RuntimeLinkedIn() {
    return @STATIC_RUNTIME@;
}

} // namespace vorna
" @ONLY)
