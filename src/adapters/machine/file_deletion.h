#pragma once

#include "platform/machine/file_system.h"
#include "platform/suite/file_service.h"

namespace orv {

/// Deletes through a FileSystem. The failure's text names the file and the reason.
class FileDeletion : public FileService {
public:
    explicit FileDeletion(FileSystem& files) : files_(files) {}

    void FileDelete(const std::string& path, bool& ok) override;
    FailureRecord FileError() const override { return failure_; }

private:
    FileSystem& files_;
    FailureRecord failure_;
};

}  // namespace orv
