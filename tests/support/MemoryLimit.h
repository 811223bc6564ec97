#pragma once

#include <cstddef>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool MemoryCanBeLimited = false;  // the sanitizer reserves more than any limit
#else
inline constexpr bool MemoryCanBeLimited = true;
#endif

/// From now on this process gets no more memory than it has, and so much.
void AllowMemory(std::size_t bytes);

/// A content of at least `size` bytes: `start`, a piece again and again, `end`.
std::string Filled(std::size_t size, const std::string& start, const std::string& piece,
                   const std::string& end = "");
