#include "platform/odbc/spool.h"

#include <algorithm>
#include <limits>

#include "kvraedi/error.h"

namespace kvraedi::odbc {
namespace {

[[noreturn]] void Throw() {
  throw Error(kErrorDatabase, "ODBC",
              "No se pueden guardar en un fichero temporal las filas que faltan por leer");
}

}  // namespace

void Spool::Append(std::span<const std::byte> bytes) {
  if (bytes.empty()) return;
  if (!file_ && memory_.size() + bytes.size() > bound_) MoveToFile();
  if (file_) {
    if (!writing_ || at_ != size_) Seek(size_);
    writing_ = true;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) Throw();
    at_ += static_cast<std::int64_t>(bytes.size());
  } else {
    memory_.insert(memory_.end(), bytes.begin(), bytes.end());
  }
  size_ += static_cast<std::int64_t>(bytes.size());
}

void Spool::Read(std::int64_t place, std::span<std::byte> out) {
  if (out.empty()) return;
  if (!file_) {
    std::copy_n(memory_.begin() + place, out.size(), out.begin());
    return;
  }
  if (writing_ || at_ != place) Seek(place);
  writing_ = false;
  if (std::fread(out.data(), 1, out.size(), file_.get()) != out.size()) Throw();
  at_ = place + static_cast<std::int64_t>(out.size());
}

void Spool::Clear() {
  size_ = 0;
  memory_.clear();
  file_.reset();
  at_ = 0;
  writing_ = false;
}

void Spool::MoveToFile() {
  file_.reset(std::tmpfile());
  if (!file_ || std::fwrite(memory_.data(), 1, memory_.size(), file_.get()) != memory_.size()) {
    Throw();
  }
  at_ = size_;
  writing_ = true;
  memory_ = {};
}

void Spool::Seek(std::int64_t place) {
  const bool fits = place <= std::numeric_limits<long>::max();
  if (!fits || std::fseek(file_.get(), static_cast<long>(place), SEEK_SET) != 0) Throw();
  at_ = place;
}

}  // namespace kvraedi::odbc
