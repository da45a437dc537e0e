# Fails when a project include points up the layers: run with -DROOT=<source folder>.
#   - below the shell, nothing includes shell/ (the shell only wires the subsystems together);
#   - failure/, worker/ and files/ stand below every subsystem, so they include only each other;
#   - a core folder includes no ui/ header (the core links no Qt and is tested without it); cli/
#     is a front end beside the shell and paints, so it may.
if(NOT ROOT)
    message(FATAL_ERROR "CheckLayering: ROOT not set")
endif()

set(subsystems failure worker files engine graph2d mathtools twovar equation graph3d parametric document history output help cli)
set(violations "")
foreach(dir IN LISTS subsystems)
    file(GLOB_RECURSE sources RELATIVE ${ROOT} ${ROOT}/${dir}/*.h ${ROOT}/${dir}/*.cpp)
    foreach(source IN LISTS sources)
        file(STRINGS ${ROOT}/${source} includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"[^\"]+\"")
        string(FIND "${source}" "/ui/" uiPosition)
        foreach(line IN LISTS includes)
            string(REGEX REPLACE "^[^\"]*\"([^\"]+)\".*$" "\\1" header "${line}")
            string(REGEX MATCH "^[^/]+" top "${header}")
            set(why "")
            if(top STREQUAL "shell")
                set(why "the shell sits above every subsystem")
            elseif(dir MATCHES "^(failure|worker|files)$" AND top MATCHES "^(engine|graph2d|mathtools|twovar|equation|graph3d|parametric|document|history|output|help|cli)$")
                set(why "${dir}/ sits below every subsystem")
            elseif(uiPosition EQUAL -1 AND NOT dir STREQUAL "cli" AND header MATCHES "/ui/")
                set(why "a core folder includes no ui/ header")
            endif()
            if(why)
                list(APPEND violations "${source} includes \"${header}\": ${why}")
            endif()
        endforeach()
    endforeach()
endforeach()

if(violations)
    list(JOIN violations "\n  " text)
    message(FATAL_ERROR "Includes that point up the layers:\n  ${text}")
endif()
