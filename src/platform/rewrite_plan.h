// The order of steps by which a file is rewritten in place without ever being empty or cut. Apart from the system's
// calls, so that the order can be proven step by step.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// `FileContent` offers size() -> optional size_t, write_at(offset, bytes) in one call and cut_at(size), the last two
// true when they worked. False: a step failed; when the disk was full the old text stands as it was. Flushing is the
// caller's.
template <typename FileContent>
[[nodiscard]] bool carry_out_rewrite(FileContent& file, std::string_view text)
{
    const std::optional<std::size_t> old_size = file.size();
    if (!old_size) return false;
    if (text.size() > *old_size) {
        const std::string blanks(text.size() - *old_size, ' ');
        if (!file.write_at(*old_size, blanks)) {
            file.cut_at(*old_size);
            return false;
        }
    }
    // Covers the old text whole: what follows the new one is blanks until the cut, not the old one's tail.
    std::string padded(std::max(text.size(), *old_size), ' ');
    text.copy(padded.data(), text.size());
    return file.write_at(0, padded) && file.cut_at(text.size());
}
