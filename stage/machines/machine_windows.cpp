#include "stage/machines/machine.h"

#include <fcntl.h>
#include <io.h>
#include <shlobj.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <initializer_list>
#include <iostream>
#include <memory>
#include <thread>

#include "stage/files/path_text.h"

namespace stage::machine {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(1);  // with another program that has the same file
constexpr auto kBetweenLooks = std::chrono::milliseconds(2);

/// Tries until it is done, or until patience ends. Somebody reads the file that is to be replaced, or is just
/// replacing the one that is to be read: another copy of the program, or one that looks for viruses. That
/// does not last. Any error but those `passing` lasts.
template <class Act>
bool Persist(Act act, std::initializer_list<DWORD> passing) {
  const auto end = Clock::now() + kPatience;
  while (!act()) {
    const bool passes = std::find(passing.begin(), passing.end(), GetLastError()) != passing.end();
    if (!passes || Clock::now() > end) return false;
    std::this_thread::sleep_for(kBetweenLooks);
  }
  return true;
}

struct CloseIt {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseIt>;

/// Null if it cannot be opened.
Handle Open(const std::filesystem::path& file, DWORD access, DWORD sharing, DWORD making) {
  HANDLE opened = INVALID_HANDLE_VALUE;
  const auto open = [&] {
    opened = CreateFileW(file.c_str(), access, sharing, nullptr, making, FILE_ATTRIBUTE_NORMAL, nullptr);
    return opened != INVALID_HANDLE_VALUE;
  };
  return Handle(Persist(open, {ERROR_SHARING_VIOLATION}) ? opened : nullptr);
}

/// The turn to write, of all programs of this house and user. One that is killed gives it back.
class Turn {
 public:
  /// Raises RuntimeError if another keeps it.
  Turn() : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\stage::machine::Replace")) {
    const auto patience = std::chrono::milliseconds(kPatience);
    const DWORD got = WaitForSingleObject(mutex_.get(), static_cast<DWORD>(patience.count()));
    if (got != WAIT_OBJECT_0 && got != WAIT_ABANDONED) throw RuntimeError("held by another program");
  }
  ~Turn() { ReleaseMutex(mutex_.get()); }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  Handle mutex_;
};

void WriteFresh(const std::filesystem::path& file, std::string_view bytes) {
  const Handle target = Open(file, GENERIC_WRITE, 0, CREATE_ALWAYS);
  if (!target) throw RuntimeError("cannot open " + TextOf(file));
  DWORD written = 0;
  const auto size = static_cast<DWORD>(bytes.size());
  const bool whole = WriteFile(target.get(), bytes.data(), size, &written, nullptr) != 0 && written == size;
  if (!whole || FlushFileBuffers(target.get()) == 0) throw RuntimeError("cannot write");
}

void MoveOver(const std::filesystem::path& fresh, const std::filesystem::path& file) {
  const auto move = [&] {
    return MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  };
  // Access is denied also while somebody has the file open.
  if (!Persist(move, {ERROR_SHARING_VIOLATION, ERROR_ACCESS_DENIED}))
    throw RuntimeError("cannot replace " + TextOf(file));
}

}  // namespace

std::string ReadStart(const std::filesystem::path& file, std::size_t most) {
  const Handle source =
      Open(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
  LARGE_INTEGER size{};
  if (!source || GetFileType(source.get()) != FILE_TYPE_DISK || GetFileSizeEx(source.get(), &size) == 0)
    throw RuntimeError("cannot read " + TextOf(file));
  // The size is that of the file as opened: another one may be put in its place at any moment.
  std::string bytes(std::min(static_cast<std::size_t>(size.QuadPart), most), '\0');
  DWORD read = 0;
  if (ReadFile(source.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) == 0)
    throw RuntimeError("cannot read " + TextOf(file));
  bytes.resize(read);
  return bytes;
}

void Replace(const std::filesystem::path& file, std::string_view bytes) {
  const Turn turn;
  std::filesystem::path fresh = file;
  fresh += ".tmp";
  try {
    WriteFresh(fresh, bytes);
    MoveOver(fresh, file);
  } catch (const RuntimeError&) {
    DeleteFileW(fresh.c_str());
    throw;
  }
}

std::filesystem::path OwnFolder() {
  constexpr DWORD kLongest = 32768;
  std::wstring name(kLongest, L'\0');
  name.resize(GetModuleFileNameW(nullptr, name.data(), kLongest));
  return std::filesystem::path(name).parent_path();
}

std::filesystem::path DataHome() {
  wchar_t* told = nullptr;
  const bool known =
      SUCCEEDED(SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_DONT_VERIFY, nullptr, &told));
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owned(told, &CoTaskMemFree);
  return known ? std::filesystem::path(told) : std::filesystem::path();
}

std::filesystem::path Nowhere() { return "NUL"; }

bool MakePrivateFolder(const std::filesystem::path& folder) {
  // Folders of a user are for him alone already.
  return CreateDirectoryW(folder.c_str(), nullptr) != 0;
}

Double SecondsOfDay() {
  constexpr Double kMillisecondsInSecond = 1000;
  constexpr ULONGLONG kTicksInMillisecond = 10000;
  FILETIME now{};
  GetSystemTimePreciseAsFileTime(&now);
  SYSTEMTIME utc{};
  SYSTEMTIME local{};
  FileTimeToSystemTime(&now, &utc);
  SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
  const ULONGLONG ticks =
      ULARGE_INTEGER{{now.dwLowDateTime, now.dwHighDateTime}}.QuadPart % kTicksInMillisecond;
  const Double milliseconds = local.wMilliseconds + Double(ticks) / kTicksInMillisecond;
  return local.wHour * 3600.0 + local.wMinute * 60.0 + local.wSecond + milliseconds / kMillisecondsInSecond;
}

void WriteOutputAsIs() { _setmode(_fileno(stdout), _O_BINARY); }

void TellTheEnd(const std::string& line) {
  std::cerr << line << '\n';
  // A program without a console says nothing there.
  MessageBoxW(nullptr, PathOf(line).c_str(), nullptr, MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
}

}  // namespace stage::machine
