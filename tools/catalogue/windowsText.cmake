cmake_minimum_required(VERSION 3.25)

# Writes the source file OUTPUT with the text of INPUT.
file(READ ${INPUT} text)
file(WRITE ${OUTPUT} "// Made by windowsText.cmake.
#include \"tools/catalogue/Windows.h\"

namespace marvello {

std::string_view windowsText() { return R\"json(${text})json\"; }

}  // namespace marvello
")
