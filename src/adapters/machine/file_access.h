#pragma once

namespace orv {

/// Access to a new file: this user only, or as its folder allows.
enum class FileAccess { Private, AsFolder };

}  // namespace orv
