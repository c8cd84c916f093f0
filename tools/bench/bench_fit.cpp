#include <cstdio>

#include "bench.h"
#include "measured_process.h"
#include "pictures_bench.h"
#include "plain_jpeg.h"

namespace bench {
namespace {

constexpr orv::PictureSize kWithin{640, 480};

/// The least possible work: one scaled decoding to at least twice the target, one resampling and ten encodings.
void floorOf(const std::string& source, orv::PictureSize own) {
    const orv::PictureSize target = fittedSize(own.width, own.height, kWithin);
    unsigned eighths = 1;
    while (eighths < 8 && own.width * static_cast<int>(eighths) / 8 < 2 * target.width) {
        eighths *= 2;
    }
    const orv::Bitmap small = resampled(decoded(source, false, eighths), target.width, target.height);
    for (const int quality : {1, 95, 60, 80, 88, 92, 90, 91, 91, 91}) {
        encoded(small, quality);
    }
}

struct Peer {
    const char* name;
    /// SRC, DST, SIZE (like 640x480) and LIMIT (bytes) are replaced.
    const char* command;
};

/// vips cannot limit the size in bytes. So its small picture is encoded repeatedly to find the quality, as the program
/// does.
constexpr Peer kPeers[] = {
    {"imagemagick", "convert SRC -resize SIZE! -define jpeg:extent=LIMIT DST"},
    {"imagemagick-hint", "convert -define jpeg:size=1280x960 SRC -resize SIZE! -define jpeg:extent=LIMIT DST"},
    {"graphicsmagick+jpegoptim",
     "gm convert -size 1280x960 SRC -resize SIZE! +profile '*' -quality 98 DST && "
     "jpegoptim -q --size=$((LIMIT / 1024)) DST"},
    {"vips",
     "vipsthumbnail SRC -s SIZE! -o DST.v && low=1 && high=100 && while [ $((high - low)) -gt 1 ]; do "
     "q=$(((low + high) / 2)); vips jpegsave DST.v DST --Q $q --optimize-coding --strip; "
     "if [ $(stat -c %s DST) -le LIMIT ]; then low=$q; else high=$q; fi; done; "
     "vips jpegsave DST.v DST --Q $low --optimize-coding --strip"},
};

std::string filledIn(std::string command, const std::vector<std::pair<std::string, std::string>>& values) {
    for (const auto& [name, value] : values) {
        for (std::size_t at = command.find(name); at != std::string::npos; at = command.find(name, at + value.size())) {
            command.replace(at, name.size(), value);
        }
    }
    return command;
}

void report(const std::string& name, const std::string& command, const std::string& target,
            const orv::Bitmap& reference) {
    std::vector<double> times;
    std::vector<double> work;
    double megabytes = 0;
    for (int i = 0; i < 5; ++i) {
        const Measured run = measured(command);
        times.push_back(run.milliseconds);
        work.push_back(run.cpuMilliseconds);
        megabytes = std::max(megabytes, run.megabytes);
    }
    const Likeness like = likeness(reference, decoded(target, true));
    std::printf("  %-26s %7.0f ms (cpu %.0f) %6.0f MB %7zu bytes  psnr %.2f  ssim %.4f\n", name.c_str(), median(times),
                median(work), megabytes, static_cast<std::size_t>(std::filesystem::file_size(target)), like.psnr,
                like.ssim);
    std::fflush(stdout);
}

}  // namespace

void fit(const std::filesystem::path& photos, const std::filesystem::path& work, const std::string& program) {
    PlainPaths paths;
    for (const auto& photo : photosIn(photos)) {
        const orv::PictureInfo info = orv::PictureFiles(paths).info(photo);
        const orv::PictureSize size = fittedSize(info.width, info.height, kWithin);
        const orv::Bitmap reference = resampled(decoded(photo, true), size.width, size.height);
        for (const int limit : {60 * 1024, 20 * 1024}) {
            const std::string target = work / "target.jpg";
            std::printf("fit %s %dx%d to %dx%d and %d bytes\n", photo.stem().c_str(), info.width, info.height,
                        size.width, size.height, limit);
            print("  against-floor", alternately(
                                         7, [&] { fitted(photo, target, kWithin, static_cast<unsigned>(limit)); },
                                         [&] {
                                             floorOf(photo, {info.width, info.height});
                                         }));
            const std::string sizes = std::to_string(size.width) + "x" + std::to_string(size.height);
            const Measured startUp = measured(program);
            std::printf("  %-26s %7.0f ms %6.0f MB, of ours\n", "start of a process", startUp.milliseconds,
                        startUp.megabytes);
            report("ours", program + " " + photo.string() + " " + target + " 640 480 " + std::to_string(limit), target,
                   reference);
            for (const Peer& peer : kPeers) {
                report(
                    peer.name,
                    filledIn(
                        peer.command,
                        {{"SRC", photo.string()}, {"DST", target}, {"SIZE", sizes}, {"LIMIT", std::to_string(limit)}}),
                    target, reference);
            }
        }
    }
}

}  // namespace bench
