#pragma once

#include <functional>
#include <map>
#include <set>

#include "platform/machine/clock.h"
#include "platform/machine/machine_facts.h"
#include "platform/machine/picture_library.h"
#include "platform/run_time_error.h"
#include "platform/suite/sys_info_service.h"

namespace orv {

/// A clock that changes only when it is set.
class FixedClock : public Clock {
public:
    DateTime moment{.year = 2026, .month = 5, .day = 4, .hour = 9, .minute = 8, .second = 7};

    DateTime now() const override { return moment; }
};

class FixedFacts : public MachineFacts {
public:
    std::string computerName = "DESK01";

    std::string GetComputerName() const override { return computerName; }
    std::string GetWindowsDirectory() const override { return "C:\\WINDOWS"; }
};

/// A computer with measurements chosen by a test. Operations in `refused` fail: "os", "memory", "ip", "disk C:\" and
/// the like, or the name of a registry value.
class ScriptedSysInfo : public SysInfoService {
public:
    std::set<std::string> refused;
    /// The calls in order, registry values as "root key name".
    std::vector<std::string> asked;

    FailureRecord SysError() const override { return {"測定の故障", "SYS:1"}; }
    void SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) override {
        facts = {"OS名", "6", "1", "7601", "SP1"};
        ok = answer("os");
    }
    void SysGetMemory(std::string& megabytes, bool& ok) override {
        megabytes = "2048";
        ok = answer("memory");
    }
    void SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) override {
        first = "13421772800";
        second = "79993765888";
        ok = answer("disk " + drive);
    }
    void SysGetIpAddress(std::string& address, bool& ok) override {
        address = "192.168.0.9";
        ok = answer("ip");
    }
    void SysGetRegString(const std::string& key, const std::string& name, const std::string& root, std::string& value,
                         bool& ok) override {
        asked.push_back(root + " " + key + " " + name);
        value = name == "InstallKey" ? "C:\\ORV" : name == "Version" ? "11.0" : "proxy:8080";
        ok = !refused.contains(name);
    }

private:
    bool answer(const std::string& what) {
        asked.push_back(what);
        return !refused.contains(what);
    }
};

/// The behaviour of a test's picture library.
struct PictureScript {
    /// The header of every file that was not written here.
    PictureInfo unwritten{.sizeDisk = 1000, .width = 640, .height = 480, .bits = 24, .format = 1};
    /// Returns the size of a file written with that quality factor.
    std::function<std::int32_t(int)> sizeAt = [](int) { return 1000; };
    std::function<void(const std::string& path, const std::string& bytes)> write;
    /// The operations that fail, with the text for an invalid picture: "info", "load", "size", "save".
    std::set<std::string> broken;

    std::map<std::string, PictureInfo> written;
    std::vector<std::string> loaded;
    std::vector<int> factors;

    void failIfBroken(const std::string& operation) const {
        if (broken.contains(operation)) throw RunTimeError(Failure::DeviceIo, "画像ではありません。");
    }
};

/// A picture that is red on its left half and blue on its right.
class BlankPicture : public Picture {
public:
    BlankPicture(PictureScript& script, int width, int height) : script_(script), width_(width), height_(height) {}
    int width() const override { return width_; }
    int height() const override { return height_; }
    Pixels scaled(int width, int height) const override {
        Pixels pixels{width, height, {}};
        for (int i = 0; i < width * height; ++i) {
            pixels.argb.push_back(i % width < width / 2 ? 0xffff0000U : 0xff0000ffU);
        }
        return pixels;
    }
    void size(int width, int height) override {
        script_.failIfBroken("size");
        width_ = width;
        height_ = height;
    }
    void save(const std::string& path, std::int32_t format, std::int32_t bits, int quality) const override {
        script_.failIfBroken("save");
        script_.factors.push_back(quality);
        script_.write(path, "factor " + std::to_string(quality));
        script_.written[path] = {script_.sizeAt(quality), width_, height_, bits, format};
    }

private:
    PictureScript& script_;
    int width_, height_;
};

class BlankPictures : public PictureLibrary {
public:
    mutable PictureScript script;

    PictureInfo info(const std::string& path) const override {
        script.failIfBroken("info");
        const auto written = script.written.find(path);
        return written == script.written.end() ? script.unwritten : written->second;
    }
    std::unique_ptr<Picture> load(const std::string& path, PictureSize = {}) const override {
        script.failIfBroken("load");
        script.loaded.push_back(path);
        const PictureInfo facts = info(path);
        return std::make_unique<BlankPicture>(script, facts.width, facts.height);
    }
};

}  // namespace orv
