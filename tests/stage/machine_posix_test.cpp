#include "stage/machines/machine.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <functional>

#include "stage/files/text_file.h"
#include "tests/mesa.h"

namespace {

/// What the machine does when a file is to be locked; the lock itself if nothing is told.
std::function<int()>& Locking() {
  static std::function<int()> locking;
  return locking;
}

}  // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system has names of its own
extern "C" int flock(int file, int operation) noexcept {
  return Locking() ? Locking()() : static_cast<int>(syscall(SYS_flock, file, operation));
}

namespace {

using stage::RuntimeError;

class Replacing : public testing::Test {
 protected:
  /// Nothing is written, and nothing is left lying about.
  void ExpectRefused() {
    const auto files = Files();
    EXPECT_THROW(stage::WriteWhole(file, "new"), RuntimeError);
    EXPECT_EQ(Files(), files);
    EXPECT_EQ(tests::ReadFile(victim), "old");
  }
  std::size_t Files() const {
    return std::size_t(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }
  void TearDown() override { Locking() = nullptr; }

  stage::TempFolder folder{tests::kAnyLetters};
  const std::filesystem::path file = folder.Path() / "a";
  const std::filesystem::path fresh = folder.Path() / ("a." + std::to_string(getuid()) + ".tmp");
  const std::filesystem::path victim = folder.Path() / "victim";
};

TEST_F(Replacing, FollowsLinksAndKeepsThem) {
  std::filesystem::create_directory(folder.Path() / "b");
  std::filesystem::create_symlink("b/link", file);
  std::filesystem::create_symlink(folder.Path() / "b" / "real", folder.Path() / "b" / "link");
  for (const char* const text : {"made", "replaced"}) {
    stage::WriteWhole(file, text);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(tests::ReadFile(folder.Path() / "b" / "real"), text);
    EXPECT_EQ(Files(), 2U);
  }
  std::filesystem::remove(file);
  std::filesystem::create_symlink("a", file);
  EXPECT_THROW(stage::WriteWhole(file, "new"), RuntimeError) << "a link to itself";
}

TEST_F(Replacing, KeepsWhoMayReadAndLeavesWhatIsReadOnly) {
  using std::filesystem::perms;
  tests::WriteFile(victim, "old");
  std::filesystem::create_symlink("victim", file);
  std::filesystem::permissions(victim, perms::owner_read);
  ExpectRefused();
  const perms own = perms::owner_read | perms::owner_write;
  std::filesystem::permissions(victim, own);
  stage::WriteWhole(file, "new");
  EXPECT_EQ(tests::ReadFile(victim), "new");
  EXPECT_EQ(std::filesystem::status(victim).permissions(), own);
  std::filesystem::remove(victim);
  stage::WriteWhole(file, "new");
  EXPECT_EQ(std::filesystem::status(victim).permissions() &
                (perms::owner_exec | perms::group_exec | perms::others_exec),
            perms::none);
}

TEST_F(Replacing, FallsIntoNoTrap) {
  tests::WriteFile(victim, "old");
  const std::pair<const char*, std::function<void()>> traps[] = {
      {"a link", [&] { std::filesystem::create_symlink(victim, fresh); }},
      {"a second name", [&] { std::filesystem::create_hard_link(victim, fresh); }},
      {"a pipe", [&] { ASSERT_EQ(mkfifo(fresh.c_str(), 0600), 0); }},
      {"a pipe in its own place", [&] { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); }}};
  for (const auto& [what, lay] : traps) {
    SCOPED_TRACE(what);
    lay();
    ExpectRefused();
    std::filesystem::remove(fresh);
  }
}

TEST_F(Replacing, TakesOverWhatAKilledWriterHasLeft) {
  tests::WriteFile(fresh, "longer than what comes");
  stage::WriteWhole(file, "new");
  EXPECT_EQ(tests::ReadFile(file), "new");
  EXPECT_EQ(Files(), 1U);
}

TEST_F(Replacing, WritesWhereTheMachineKnowsNoLocks) {
  Locking() = [] { return errno = ENOLCK, -1; };
  stage::WriteWhole(file, "new");
  EXPECT_EQ(tests::ReadFile(file), "new");
}

TEST_F(Replacing, StartsAnewWhenAnotherWriterHasPutItsFileInPlace) {
  int locks = 0;
  Locking() = [&] {
    if (++locks == 1) std::filesystem::rename(fresh, victim);
    return 0;
  };
  stage::WriteWhole(file, "new");
  EXPECT_EQ(locks, 2);
  EXPECT_EQ(tests::ReadFile(file), "new");
  EXPECT_EQ(tests::ReadFile(victim), "");
}

TEST_F(Replacing, WaitsForAnotherWriterButNotForEver) {
  struct Writer {
    explicit Writer(const std::filesystem::path& path) : held(open(path.c_str(), O_WRONLY | O_CREAT, 0600)) {
      EXPECT_EQ(flock(held, LOCK_EX), 0);
    }
    ~Writer() { close(held); }
    int held;
  };
  tests::WriteFile(victim, "old");
  {
    const Writer writer(fresh);
    ExpectRefused();
  }
  stage::WriteWhole(file, "new");
  EXPECT_EQ(tests::ReadFile(file), "new");
}

TEST(Machine, KnowsTheTimeOfTheDay) {
  const auto day = [] {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const std::time_t whole = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    std::tm local{};
    localtime_r(&whole, &local);
    const std::chrono::duration<double> part = now - std::chrono::seconds(whole);
    return (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec + part.count();
  };
  double before = 1;
  double told = 0;
  double after = 0;
  while (after < before) {  // once more at midnight
    before = day();
    told = stage::machine::SecondsOfDay();
    after = day();
  }
  EXPECT_GE(told, before);
  EXPECT_LE(told, after);
}

TEST(Machine, KeepsThePlayersFilesWhereTheSystemSays) {
  const char* const known[] = {"XDG_DATA_HOME", "HOME"};
  std::vector<std::string> kept;
  for (const char* const name : known)
    kept.emplace_back(std::getenv(name) == nullptr ? "" : std::getenv(name));
  struct Case {
    const char* data;
    const char* home;
    const char* expected;
  };
  for (const Case& each : {Case{"/data", "/home/any", "/data"},
                           {"data", "/home/any", "/home/any/.local/share"},
                           {"", "/home/any", "/home/any/.local/share"},
                           {"", "any", ""}}) {
    setenv(known[0], each.data, 1);
    setenv(known[1], each.home, 1);
    EXPECT_EQ(stage::machine::DataHome(), each.expected);
  }
  for (std::size_t i = 0; i < kept.size(); ++i) setenv(known[i], kept[i].c_str(), 1);
}

TEST(PrivateFolder, IsForItsOwnerAlone) {
  using std::filesystem::perms;
  const stage::TempFolder folder;
  const auto made = folder.Path() / "a";
  EXPECT_TRUE(stage::machine::MakePrivateFolder(made));
  EXPECT_EQ(std::filesystem::status(made).permissions(), perms::owner_all);
  EXPECT_FALSE(stage::machine::MakePrivateFolder(made));
  std::error_code error;
  EXPECT_FALSE(std::filesystem::create_directories(stage::machine::Nowhere() / "a", error));
}

}  // namespace
