#pragma once

#include "platform/machine/code_page.h"
#include "platform/machine/file_system.h"
#include "platform/machine/machine_facts.h"
#include "platform/machine/profile_reader.h"

namespace orv {

/// Reads INI files afresh at each call. Works on bytes of the code page: a trail byte that looks like a bracket or an
/// equals sign stays part of its character. A file over 64 MB is failure 7.
class IniReader : public ProfileReader {
public:
    IniReader(const FileSystem& files, const CodePage& codePage, const MachineFacts& facts)
        : files_(files), codePage_(codePage), facts_(facts) {}

    std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                        const std::string& file) const override;

private:
    std::string resolvePath(const std::string& file) const;

    const FileSystem& files_;
    const CodePage& codePage_;
    const MachineFacts& facts_;
};

}  // namespace orv
