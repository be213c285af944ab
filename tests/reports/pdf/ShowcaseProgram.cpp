// marvello-pdf-showcase FILE: writes the sample document. The bitmaps that it shows go next to it.
#include <cstdio>
#include <exception>
#include <filesystem>

#include "tests/reports/pdf/Showcase.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: marvello-pdf-showcase FILE\n", stderr);
        return 2;
    }
    try {
        marvello::writeShowcase(argv[1], std::filesystem::absolute(argv[1]).parent_path().string());
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 2;
    }
    return 0;
}
