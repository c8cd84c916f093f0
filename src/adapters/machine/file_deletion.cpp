#include "adapters/machine/file_deletion.h"

#include "platform/run_time_error.h"

namespace orv {

void FileDeletion::FileDelete(const std::string& path, bool& ok) {
    failure_ = {};
    try {
        files_.remove(path);
        ok = true;
    } catch (const RunTimeError& error) {
        failure_ = {"「" + path + "」を削除できませんでした。" + error.description(), std::to_string(error.number())};
        ok = false;
    }
}

}  // namespace orv
