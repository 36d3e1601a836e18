#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <vector>

namespace kvraedi::odbc {

/// Bytes that are written one behind the other and read from anywhere: in memory up to a bound,
/// then all of them in a temporary file that nobody else can open and that goes with the object.
class Spool {
 public:
  explicit Spool(std::size_t bound) : bound_(bound) {}

  void Append(std::span<const std::byte> bytes);
  /// Fills `out` from the bytes at `place`.
  void Read(std::int64_t place, std::span<std::byte> out);
  std::int64_t Size() const { return size_; }
  void Clear();

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  void MoveToFile();
  void Seek(std::int64_t place);

  std::size_t bound_;
  std::int64_t size_ = 0;
  std::vector<std::byte> memory_;
  std::unique_ptr<std::FILE, Closer> file_;
  std::int64_t at_ = 0;   // of the file
  bool writing_ = false;  // the last thing done to the file
};

}  // namespace kvraedi::odbc
