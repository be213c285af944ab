// marvello-pictures: takes the photos and draws the dimension drawings of the compressors; see README.md.
#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <exception>
#include <filesystem>
#include <fstream>
#include <future>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "controls/Metafile.h"
#include "demo/pictures/Bodies.h"
#include "demo/pictures/Design.h"
#include "demo/pictures/DimensionDrawing.h"
#include "demo/pictures/Photo.h"

using namespace marvello::pictures;

namespace {

struct PhotoOptions {
    std::string folder;
    std::vector<std::string> series;
    bool isDraft = false;
};

std::vector<Motif> motifsOf(const std::string& plans, const std::vector<std::string>& wanted) {
    const auto all = readBodies(plans);
    std::vector<Motif> motifs;
    for (const auto& series : all) motifs.push_back({series.serie, designOf(series.serie, series.typical())});
    motifs.push_back({"Kestrom", designOf("TK-A", all.front().typical()), true});
    if (!wanted.empty())
        std::erase_if(motifs, [&](const Motif& motif) {
            return std::ranges::find(wanted, motif.name) == wanted.end();
        });
    return motifs;
}

/// Takes as many photos at once as there are cores.
void takePhotos(const PhotoOptions& options, const std::string& plans) {
    std::filesystem::create_directories(options.folder);
    const std::vector<Motif> motifs = motifsOf(plans, options.series);
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        for (std::size_t i = next++; i < motifs.size(); i = next++) {
            const auto begin = std::chrono::steady_clock::now();
            const auto file = std::filesystem::path(options.folder) / (motifs[i].name + ".jpg");
            takePhoto(motifs[i], file, options.isDraft ? QSize(435, 300) : QSize(870, 600), options.isDraft);
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
            std::cout << file.filename().string() + "  " +
                             std::to_string(std::filesystem::file_size(file) / 1024) + " kB, " +
                             std::to_string(std::lround(taken.count())) + " s\n"
                      << std::flush;
        }
    };
    std::vector<std::future<void>> works(std::max(std::thread::hardware_concurrency(), 1U));
    for (auto& one : works) one = std::async(std::launch::async, work);
    for (auto& one : works) one.get();
}

void saveDrawings(const std::string& folder, const std::string& plans) {
    std::filesystem::create_directories(folder);
    for (const auto& series : readBodies(plans)) {
        const auto file = std::filesystem::path(folder) / (series.serie + ".wmf");
        const auto bytes = dimensionDrawing(series);
        std::ofstream stream(file, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!stream.flush()) throw std::runtime_error(file.string() + " cannot be written.");
    }
}

/// Plays a metafile on white into a picture.
void showMetafile(const std::string& from, const std::string& to, int width) {
    const auto metafile = marvello::Metafile::load(QString::fromStdString(from));
    if (metafile.isNull()) throw std::runtime_error(from + " is no placeable metafile.");
    QImage image(width, static_cast<int>(width * metafile.size().height() / metafile.size().width()),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    metafile.draw(painter, image.rect());
    painter.end();
    if (!image.save(QString::fromStdString(to))) throw std::runtime_error(to + " cannot be written.");
}

int run(int argc, char** argv) {
    CLI::App program("Takes the photos and draws the dimension drawings of the compressors.");
    std::string plans = MARVELLO_PLANS;
    program.add_option("--plans", plans, "folder with series.csv, bodies.csv and models.csv")
        ->check(CLI::ExistingDirectory);
    program.require_subcommand(1);
    PhotoOptions photos;
    CLI::App* take = program.add_subcommand("photos", "takes the photos");
    take->add_option("folder", photos.folder)->required();
    take->add_option("--series", photos.series, "only these");
    take->add_flag("--draft", photos.isDraft, "small and with rough edges, for a quick look");
    std::string folder, file;
    CLI::App* draw = program.add_subcommand("drawings", "draws the dimension drawings");
    draw->add_option("folder", folder)->required();
    CLI::App* show = program.add_subcommand("show", "shows a metafile as a picture");
    int width = 1200;
    show->add_option("metafile", folder)->required();
    show->add_option("file", file)->required();
    show->add_option("--width", width, "of the picture in pixels")->check(CLI::Range(100, 8000));
    CLI11_PARSE(program, argc, argv);
    if (take->parsed()) takePhotos(photos, plans);
    if (draw->parsed()) saveDrawings(folder, plans);
    if (show->parsed()) showMetafile(folder, file, width);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
