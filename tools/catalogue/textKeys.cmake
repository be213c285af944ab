cmake_minimum_required(VERSION 3.25)

# Writes the source file OUTPUT with the dictionary keys that stand as literals in the files listed in SOURCES (one a
# line): the whole ones, and those that the program completes, which end in "." or hold "%1".
# The first words of keys; each window has one of its own.
set(areas "messages|general|variables|technicaldata|formselection|frm[a-z]*|mdimain|report|help|find")
set(literal "\"(${areas})(\\.[A-Za-z0-9_%-]+)*\\.?\"")
set(whole "")
set(completed "")
file(STRINGS ${SOURCES} files)
foreach(file IN LISTS files)
    file(READ ${file} source)
    string(REGEX MATCHALL "${literal}" found "${source}")
    foreach(key IN LISTS found)
        if(key MATCHES "%1|\\.\"$")
            list(APPEND completed ${key})
        elseif(key MATCHES "\\." AND NOT key MATCHES "\\.(h|cpp|pdf|txt|csv|xml|svg|png|jpg)\"$")
            list(APPEND whole ${key})
        endif()
    endforeach()
endforeach()

function(as_array name keys result)
    list(SORT keys)
    list(REMOVE_DUPLICATES keys)
    list(LENGTH keys count)
    list(JOIN keys ",\n    " lines)
    set(${result} "constexpr std::array<std::string_view, ${count}> ${name}{\n    ${lines}};\n" PARENT_SCOPE)
endfunction()
as_array(wholeKeys "${whole}" wholeArray)
as_array(partialKeys "${completed}" completedArray)

file(WRITE ${OUTPUT} "// Made by textKeys.cmake.
#include <array>

#include \"tools/catalogue/Program.h\"

namespace marvello {

namespace {

${wholeArray}
${completedArray}
}  // namespace

std::span<const std::string_view> keysInSources() { return wholeKeys; }
std::span<const std::string_view> completedKeysInSources() { return partialKeys; }

}  // namespace marvello
")
