#pragma once

namespace orv {

inline constexpr int kNever = 0;

/// This process dies, as by kill -9, at the `moment`-th moment from now on, counted from 1. There is one before and one
/// after each call that changes a file, and one in the middle of each writing: at no others can the disk look
/// different. From now on nothing waits for the disk either, since what a dead process has written is not lost.
void dieAt(int moment);

}  // namespace orv
