#pragma once

#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

class FileService : public Interface {
public:
    virtual void FileDelete(const std::string& path, bool& ok) = 0;
    virtual FailureRecord FileError() const = 0;
};

}  // namespace orv
