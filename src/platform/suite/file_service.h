#pragma once

#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

class FileService {
public:
    FileService() = default;
    FileService(const FileService&) = delete;
    FileService& operator=(const FileService&) = delete;
    virtual ~FileService() = default;

    virtual void FileDelete(const std::string& path, bool& ok) = 0;
    virtual FailureRecord FileError() const = 0;
};

}  // namespace orv
