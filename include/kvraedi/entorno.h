#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/export.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// Regional settings that show in texts: the sign between integer part and decimals.
struct RegionalSettings {
  char decimal = ',';
};

/// A file being written. Every call raises kErrorFile when the system refuses. Destroying it
/// without Close() closes the file and drops any error: what was written may be incomplete.
class KVRAEDI_API FileWriter {
 public:
  virtual ~FileWriter();
  /// Appends the bytes and hands them to the system: callers with many small pieces collect them.
  virtual void Write(std::string_view bytes) = 0;
  /// Closes the file. Closing twice is allowed.
  virtual void Close() = 0;
};

/// A file being read, from its beginning. Destroying it closes it.
class KVRAEDI_API FileReader {
 public:
  virtual ~FileReader();
  /// Fills the block as far as the file goes; gives back the bytes read, 0 at the end. Raises
  /// kErrorFile.
  virtual std::size_t Read(std::span<char> block) = 0;
};

/// What tells the bytes of a file from others.
struct FileDigest {
  std::string sha256;  ///< 64 hexadecimal digits, small letters
  std::int64_t bytes = 0;
};

/// A file that this program holds alone. Destroying it lets the file go and removes it.
class KVRAEDI_API FileHold {
 public:
  virtual ~FileHold();
  /// What a program left in it that was interrupted; "" when none did.
  virtual std::string Text() const = 0;
  /// Adds to the file and forces it to the disk.
  virtual void Append(std::string_view text) = 0;
  /// Lets the file stay when it is let go.
  virtual void Leave() = 0;
};

/// The machine around the component: clock, names, settings and files. All access to files goes
/// through it. Paths are native; operations raise kErrorFile with a Spanish text that names the
/// path. One thread.
class KVRAEDI_API Entorno {
 public:
  virtual ~Entorno();

  /// Local date and time, to the second.
  virtual FechaHora Now() = 0;
  /// Local date and time for a file name, never the same second twice: a clock that has not moved
  /// on since the last one runs ahead. Of a real clock that holds for the whole process.
  virtual FechaHora FileStamp() = 0;
  /// A new text that no other message carries, 40 characters at most.
  virtual std::string NewMessageId() = 0;
  virtual std::string TerminalName() = 0;
  /// Milliseconds since the machine started; wraps around and may then be negative.
  virtual std::int32_t TickCount() = 0;
  virtual RegionalSettings Region() = 0;
  /// The folder where the component stands.
  virtual std::filesystem::path ComponentFolder() = 0;
  /// The folder that stands for the root of the system drive ("C:\\"), where files of a fixed place
  /// go.
  virtual std::filesystem::path DriveRoot() = 0;
  /// The user's profile folder ("userprofile"), below which the work folders stand.
  virtual std::filesystem::path ProfileFolder() = 0;

  virtual bool FolderExists(const std::filesystem::path& folder) = 0;
  virtual bool FileExists(const std::filesystem::path& file) = 0;
  /// One level; the parent must exist. A folder that is already there is left alone.
  virtual void MakeFolder(const std::filesystem::path& folder) = 0;
  /// A new empty file, or an existing one emptied.
  virtual std::unique_ptr<FileWriter> Create(const std::filesystem::path& file) = 0;
  /// A new file that only its owner may read or write; raises when something stands there already.
  virtual std::unique_ptr<FileWriter> CreatePrivate(const std::filesystem::path& file) = 0;
  /// All bytes of the file. Only plain files are read, here and below: a pipe or a device raises.
  virtual std::string ReadFile(const std::filesystem::path& file) = 0;
  /// An existing file, read block by block.
  virtual std::unique_ptr<FileReader> OpenForReading(const std::filesystem::path& file) = 0;
  /// Bytes of a file; 0 when it is not there.
  virtual std::int64_t FileSize(const std::filesystem::path& file) = 0;
  /// SHA-256 and size of an existing file.
  virtual FileDigest Digest(const std::filesystem::path& file) = 0;
  /// Names, without folder, of the plain files of a folder that end in `ending` (".dat"), without
  /// regard to case, in order; a snapshot.
  virtual std::vector<std::string> ListFiles(const std::filesystem::path& folder,
                                             std::string_view ending) = 0;
  /// Names of the folders that stand directly below a folder, in order; a snapshot.
  virtual std::vector<std::string> ListFolders(const std::filesystem::path& folder) = 0;
  /// A new empty file; null when the name is in use. No two programs get the same one.
  virtual std::unique_ptr<FileWriter> CreateNew(const std::filesystem::path& file) = 0;
  /// The file with what it holds kept, written at its end; made when it is not there.
  virtual std::unique_ptr<FileWriter> Append(const std::filesystem::path& file) = 0;
  /// Copies the bytes over `to`, made or replaced; they are on the disk when it returns.
  virtual void Copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Moves within one folder, replacing what is there, in one step.
  virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  virtual void Delete(const std::filesystem::path& file) = 0;
  /// Cuts off what a file has beyond that length.
  virtual void Truncate(const std::filesystem::path& file, std::int64_t bytes) = 0;
  /// Takes a file, made when it is not there, for this program alone. Into an empty one it writes
  /// which terminal and process have it, as lines "terminal=" and "proceso=". Waits for another one
  /// that holds it; null when that still does when the wait is over. The system lets it go when the
  /// program and those that it has started meanwhile end, however they end.
  virtual std::unique_ptr<FileHold> Hold(const std::filesystem::path& file,
                                         std::chrono::milliseconds wait) = 0;
  /// Opens an existing file with the program that the system has for its type, and does not wait
  /// for it.
  virtual void OpenWithDefaultProgram(const std::filesystem::path& file) = 0;

  /// Starts a program, without arguments, and gives back its process identifier. The path goes
  /// without the ending that the system gives to programs. The program sees the same profile
  /// folder.
  virtual std::int64_t Start(const std::filesystem::path& program) = 0;
  /// Waits without limit until a started program ends; returns at once when there is no such
  /// process.
  virtual void Wait(std::int64_t process) = 0;
};

/// Passes every call on: the base of environments that fix the clock or fail on purpose.
class KVRAEDI_API EntornoWrapper : public Entorno {
 public:
  /// `target` must outlive the wrapper.
  explicit EntornoWrapper(Entorno& target) : target_(target) {}

  FechaHora Now() override { return target_.Now(); }
  FechaHora FileStamp() override { return target_.FileStamp(); }
  std::string NewMessageId() override { return target_.NewMessageId(); }
  std::string TerminalName() override { return target_.TerminalName(); }
  std::int32_t TickCount() override { return target_.TickCount(); }
  RegionalSettings Region() override { return target_.Region(); }
  std::filesystem::path ComponentFolder() override { return target_.ComponentFolder(); }
  std::filesystem::path DriveRoot() override { return target_.DriveRoot(); }
  std::filesystem::path ProfileFolder() override { return target_.ProfileFolder(); }
  bool FolderExists(const std::filesystem::path& folder) override {
    return target_.FolderExists(folder);
  }
  bool FileExists(const std::filesystem::path& file) override { return target_.FileExists(file); }
  void MakeFolder(const std::filesystem::path& folder) override { target_.MakeFolder(folder); }
  std::unique_ptr<FileWriter> Create(const std::filesystem::path& file) override {
    return target_.Create(file);
  }
  std::unique_ptr<FileWriter> CreatePrivate(const std::filesystem::path& file) override {
    return target_.CreatePrivate(file);
  }
  std::string ReadFile(const std::filesystem::path& file) override {
    return target_.ReadFile(file);
  }
  std::unique_ptr<FileReader> OpenForReading(const std::filesystem::path& file) override {
    return target_.OpenForReading(file);
  }
  std::int64_t FileSize(const std::filesystem::path& file) override {
    return target_.FileSize(file);
  }
  FileDigest Digest(const std::filesystem::path& file) override { return target_.Digest(file); }
  std::vector<std::string> ListFiles(const std::filesystem::path& folder,
                                     std::string_view ending) override {
    return target_.ListFiles(folder, ending);
  }
  std::vector<std::string> ListFolders(const std::filesystem::path& folder) override {
    return target_.ListFolders(folder);
  }
  std::unique_ptr<FileWriter> CreateNew(const std::filesystem::path& file) override {
    return target_.CreateNew(file);
  }
  std::unique_ptr<FileWriter> Append(const std::filesystem::path& file) override {
    return target_.Append(file);
  }
  void Copy(const std::filesystem::path& from, const std::filesystem::path& to) override {
    target_.Copy(from, to);
  }
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    target_.Rename(from, to);
  }
  void Delete(const std::filesystem::path& file) override { target_.Delete(file); }
  void Truncate(const std::filesystem::path& file, std::int64_t bytes) override {
    target_.Truncate(file, bytes);
  }
  std::unique_ptr<FileHold> Hold(const std::filesystem::path& file,
                                 std::chrono::milliseconds wait) override {
    return target_.Hold(file, wait);
  }
  void OpenWithDefaultProgram(const std::filesystem::path& file) override {
    target_.OpenWithDefaultProgram(file);
  }
  std::int64_t Start(const std::filesystem::path& program) override {
    return target_.Start(program);
  }
  void Wait(std::int64_t process) override { target_.Wait(process); }

 private:
  Entorno& target_;
};

}  // namespace kvraedi
