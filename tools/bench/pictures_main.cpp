// bench_pictures fit|thumb PHOTOS WORK: compares the program with the toolkit's JPEG decoder and encoder, on each *.jpg
// of the folder PHOTOS.
#include <QBuffer>
#include <QSize>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>

#include "adapters/pictures/picture_files.h"
#include "adapters/system/system_files.h"
#include "bench.h"

namespace {

namespace fs = std::filesystem;
using namespace bench;

constexpr int kRounds = 7;
constexpr QSize kLimit{640, 480};
constexpr QSize kSlot{484, 400};
constexpr QSize kShown{121, 100};

/// The machine's own files, with their native paths.
orv::SystemFiles& files() {
    static const orv::InstallPaths none("/no install", "/no install");
    static orv::SystemFiles native(none);
    return native;
}

const orv::PictureFiles& pictures() {
    static const orv::PictureFiles all(files());
    return all;
}

QSize within(const orv::PictureInfo& info, QSize limit) {
    return QSize(info.width, info.height).scaled(limit, Qt::KeepAspectRatio);
}

/// Fits a photo as the program does: scales it, and searches the best factor in ten saves.
void fitByProgram(const std::string& photo, const std::string& target, std::int64_t limit) {
    const orv::PictureInfo info = pictures().info(photo);
    const auto picture = pictures().load(photo, {kLimit.width(), kLimit.height()});
    const QSize size = within(info, kLimit);
    picture->size(size.width(), size.height());
    const auto fits = [&](int factor) {
        picture->save(target, info.format, info.bits, factor);
        return pictures().info(target).sizeDisk <= limit;
    };
    fits(orv::kBestQuality);
    int below = 1;
    int found = orv::kSmallestQuality;
    fits(found);
    while (found - below > 1) {
        const int middle = (below + found) / 2;
        (fits(middle) ? found : below) = middle;
    }
    fits(found);
}

/// The same work by the toolkit: one scaled decoding and ten encodings.
void fitByToolkit(const std::string& photo, QSize size) {
    const QImage image = decoded(photo, size);
    for (const int quality : {1, 95, 60, 80, 88, 92, 90, 91, 91, 91}) {
        QBuffer buffer;
        image.save(&buffer, "JPG", quality);
    }
}

void measureFit(const std::string& photo, const fs::path& work) {
    const QSize size = within(pictures().info(photo), kLimit);
    for (const int kilobytes : {60, 20}) {
        const auto ours = [&] { fitByProgram(photo, work / "target.jpg", kilobytes * 1024); };
        print("fit " + fs::path(photo).stem().string() + " to " + std::to_string(kilobytes) + " KB",
              alternately(kRounds, ours, [&] { fitByToolkit(photo, size); }));
    }
}

/// Fills both slots of a page: loads the photo for the slot's size and scales it.
void measureThumb(const std::string& photo, const fs::path& /*work*/) {
    const orv::PictureInfo info = pictures().info(photo);
    const QSize shown = within(info, kShown);
    const auto twice = [](const auto& work) {
        return [&work] {
            work();
            work();
        };
    };
    const auto ours = [&] {
        static_cast<void>(
            pictures().load(photo, {kSlot.width(), kSlot.height()})->scaled(shown.width(), shown.height()));
    };
    const auto peer = [&] { decoded(photo, within(info, kSlot)); };
    print("thumb " + fs::path(photo).stem().string(), alternately(kRounds, twice(ours), twice(peer)));
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::map<std::string, void (*)(const std::string&, const fs::path&)> works{{"fit", measureFit},
                                                                                     {"thumb", measureThumb}};
    const auto work = argc == 4 ? works.find(argv[1]) : works.end();
    if (work == works.end()) {
        std::cerr << "bench_pictures fit|thumb PHOTOS WORK\n";
        return 2;
    }
    for (const auto& entry : std::set<fs::path>(fs::directory_iterator(argv[2]), fs::directory_iterator())) {
        if (entry.extension() == ".jpg") {
            work->second(entry, argv[3]);
        }
    }
    return 0;
}
