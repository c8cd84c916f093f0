#include "sample_folder.h"

namespace orv {

const std::string kSampleFolder = SAMPLE_FOLDER;

}  // namespace orv
