#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "programs/store/tool_system.h"
#include "support/store_files.h"

namespace orv {

struct Outcome {
    int ending;
    std::string out, err;
};

class StoreTool : public ::testing::Test {
protected:
    StoreTool() {
        closeToOthers(folder.path().string());
        closeToOthers(office);
    }
    Outcome tool(const std::string& arguments, const std::string& before = "", const std::string& input = "") const {
        writeFile(folder.file("in"), input);
        const int ending = runTool(folder.path().string(), arguments, before);
        return {ending, readFile(folder.file("out")), readFile(folder.file("err"))};
    }
    nlohmann::json json(const std::string& arguments) const {
        return nlohmann::json::parse(tool(arguments + " --json").out, nullptr, false);
    }
    /// Returns a file that names a new database of the server.
    std::string onServer(const std::string& name, const std::string& createdFrom) const {
        runOnServer("postgres", "DROP DATABASE IF EXISTS " + name);
        runOnServer("postgres", "CREATE DATABASE " + name + " TEMPLATE " + createdFrom);
        writeFile(folder.file(name), serverText(name) + "\n");
        return name;
    }
    /// Returns a store in a file and, if the tool can use a server, a new one there.
    std::vector<std::string> bothKinds(const std::string& file, const std::string& served,
                                       const std::string& createdFrom = "sample") const {
        return hasServer() ? std::vector{file, onServer(served, createdFrom)} : std::vector{file};
    }
    /// Runs `sql` on a store of either kind, without the adapter.
    void change(const std::string& store, const std::string& sql) const {
        const std::string file = folder.file(store);
        readFile(file).starts_with("SQLite") ? runSql(file, sql) : static_cast<void>(runOnServer(store, sql));
    }
    /// Writes the content of `office` as a file of that version of the older engine.
    void makeJet(int version, const std::string& name = "old.mdb", const std::string& option = "") const {
        const std::string command = "python3 '" JET_WRITER "' '" + office + "' " + std::to_string(version) + " '" +
                                    folder.file(name) + "' " + option;
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
    std::vector<std::string> names(const std::string& in = "") const {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(folder.file(in))) {
            const std::string name = pathText(entry.path().filename());
            if (name != "in" && name != "out" && name != "err") all.push_back(name);
        }
        std::sort(all.begin(), all.end());
        return all;
    }
    bool matches(const Outcome& run, const std::string& word) const {
        return run.out.find(word) != std::string::npos || run.err.find(word) != std::string::npos;
    }

    const TempFolder folder;
    const std::string office = makeSampleStore(folder.file("office"));
};

}  // namespace orv
