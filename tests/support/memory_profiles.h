#pragma once

#include <map>
#include <string>

#include "platform/machine/profile_reader.h"
#include "platform/run_time_error.h"
#include "support/system_path.h"

namespace orv {

/// INI files in memory, names without regard to case.
class MemoryProfiles : public ProfileReader {
public:
    void set(const std::string& file, const std::string& section, const std::string& key, std::string value) {
        values_[folded(file + "[" + section + "]" + key)] = std::move(value);
    }
    /// Every reading of that key, in whatever file, fails.
    void refuse(const std::string& section, const std::string& key, Failure failure) {
        refused_.insert_or_assign(folded(section + "=" + key), failure);
    }
    void clear() {
        values_.clear();
        refused_.clear();
    }
    int reads() const { return reads_; }

    std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                        const std::string& file) const override {
        ++reads_;
        if (const auto refusal = refused_.find(folded(section + "=" + key)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
        const auto value = values_.find(folded(file + "[" + section + "]" + key));
        return value == values_.end() ? std::string() : value->second;
    }

private:
    std::map<std::string, std::string> values_;
    std::map<std::string, Failure> refused_;
    mutable int reads_ = 0;
};

}  // namespace orv
