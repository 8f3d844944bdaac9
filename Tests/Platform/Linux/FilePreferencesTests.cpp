#include "Platform/Linux/FilePreferences.h"
#include "Profiles/ProfileStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tervale {

namespace fs = std::filesystem;

namespace {

Preferences::Data bytes(std::string_view text) {
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

/// A variable of the environment that gets its value back in the end.
class EnvironmentVariable {
  public:
    explicit EnvironmentVariable(const char* name) : name(name) {
        if (const char* value = std::getenv(name))
            before = value;
    }
    ~EnvironmentVariable() { set(before); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

    void set(const std::optional<std::string>& value) const {
        if (value)
            ::setenv(name, value->c_str(), 1);
        else
            ::unsetenv(name);
    }

  private:
    const char* name;
    std::optional<std::string> before;
};

class FilePreferencesTest : public testing::Test {
  protected:
    FilePreferencesTest() {
        std::string pattern = fs::temp_directory_path() / "tervale-test.XXXXXX";
        root = ::mkdtemp(pattern.data());
        folder = root / "config" / "tervale";
    }
    ~FilePreferencesTest() override { fs::remove_all(root); }

    /// Reads through an object of its own, as after a restart.
    std::optional<Preferences::Data> stored(const std::string& key) const {
        return FilePreferences(folder).data(key);
    }
    void writeFile(const std::string& name, std::string_view text) const {
        fs::create_directories(folder);
        std::ofstream(folder / name) << text;
    }
    std::size_t fileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
    static mode_t modeOf(const fs::path& path) {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 0777U;
    }

    fs::path root;
    fs::path folder;
};

} // namespace

TEST_F(FilePreferencesTest, KnowsWhatIsStoredThoughItCannotBeRead) {
    const FilePreferences preferences(folder);
    EXPECT_FALSE(preferences.contains("profiles"));
    writeFile("profiles", "[]");
    EXPECT_TRUE(preferences.contains("profiles"));
    EXPECT_FALSE(preferences.contains("selection"));
    fs::create_directory(folder / "selection");
    EXPECT_TRUE(preferences.contains("selection"));
    EXPECT_EQ(preferences.data("selection"), std::nullopt);
}

TEST_F(FilePreferencesTest, KeepsALinkThatAPersonPutInAFilesPlace) {
    const fs::path elsewhere = root / "elsewhere";
    fs::create_directories(elsewhere);
    fs::create_directories(folder);
    fs::create_symlink("../../elsewhere/second", folder / "profiles");
    fs::create_symlink(elsewhere / "third", elsewhere / "second");
    for (const char* text : {"one", "two"}) {
        FilePreferences(folder).setData("profiles", bytes(text));
        EXPECT_EQ(stored("profiles"), bytes(text));
        EXPECT_TRUE(fs::is_symlink(folder / "profiles"));
        EXPECT_TRUE(fs::is_symlink(elsewhere / "second"));
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(elsewhere / "third")));
    }
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(FilePreferencesTest, AreEmptyWithoutAFolder) {
    FilePreferences preferences(folder);
    EXPECT_FALSE(preferences.data("profiles"));
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(FilePreferencesTest, SurviveARestart) {
    FilePreferences(folder).setData("profiles", bytes("[]"));
    FilePreferences(folder).setData("selection", bytes("one"));
    FilePreferences(folder).setData("selection", bytes("two"));
    EXPECT_EQ(stored("profiles"), bytes("[]"));
    EXPECT_EQ(stored("selection"), bytes("two"));
    EXPECT_EQ(fileCount(), 2U);
}

TEST_F(FilePreferencesTest, KeepBytesOfEveryValueAndLength) {
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 300000U}) {
        Preferences::Data data(size);
        for (std::size_t index = 0; index < size; ++index)
            data[index] = static_cast<std::byte>(index);
        FilePreferences(folder).setData("key", data);
        EXPECT_EQ(stored("key"), data) << size;
    }
}

TEST_F(FilePreferencesTest, HoldSixteenMebibytesAndNoMore) {
    constexpr std::size_t most = std::size_t{16} << 20U;
    FilePreferences(folder).setData("key", Preferences::Data(most));
    ASSERT_TRUE(stored("key"));
    EXPECT_EQ(stored("key")->size(), most);
    FilePreferences(folder).setData("key", Preferences::Data(most + 1));
    EXPECT_EQ(fs::file_size(folder / "key"), most);
    fs::resize_file(folder / "key", most + 1);
    EXPECT_FALSE(stored("key"));
}

TEST_F(FilePreferencesTest, TakeKeysOfTwoHundredCharacters) {
    const std::string key(200, 'k');
    FilePreferences(folder).setData(key, bytes("x"));
    EXPECT_EQ(stored(key), bytes("x"));
}

TEST_F(FilePreferencesTest, AreTheUsersAlone) {
    const mode_t before = ::umask(0);
    FilePreferences(folder).setData("key", bytes("x"));
    ::umask(before);
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(folder.parent_path()), 0700U);
    EXPECT_EQ(modeOf(folder / "key"), 0600U);
}

TEST_F(FilePreferencesTest, ReadTheOldValueAfterAnInterruptedWrite) {
    FilePreferences(folder).setData("profiles", bytes("old"));
    writeFile(".profiles.Ab12Cd", "ne");
    EXPECT_EQ(stored("profiles"), bytes("old"));
    FilePreferences(folder).setData("profiles", bytes("new"));
    EXPECT_EQ(stored("profiles"), bytes("new"));
}

TEST_F(FilePreferencesTest, RemoveWhatAnInterruptedWriteLeftLongAgo) {
    const auto writeOld = [this](const std::string& name) {
        writeFile(name, "ne");
        fs::last_write_time(folder / name,
                            fs::file_time_type::clock::now() - std::chrono::hours(2));
    };
    writeOld(".profiles.Ab12Cd");
    // What another process may just be writing, and what is none of this key's temporary files.
    writeFile(".profiles.Ef34Gh", "ne");
    for (const char* other : {".selection.Ab12Cd", ".profiles.Ab12C", ".profiles.Ab12CdE",
                              ".profiles", "profiles.Ab12Cd"})
        writeOld(other);
    FilePreferences(folder).setData("profiles", bytes("new"));
    EXPECT_FALSE(fs::exists(folder / ".profiles.Ab12Cd"));
    for (const char* kept : {".profiles.Ef34Gh", ".selection.Ab12Cd", ".profiles.Ab12C",
                             ".profiles.Ab12CdE", ".profiles", "profiles.Ab12Cd"})
        EXPECT_TRUE(fs::exists(folder / kept)) << kept;
}

TEST_F(FilePreferencesTest, KeepTheOldValueForThoseWhoHaveItOpen) {
    FilePreferences(folder).setData("key", bytes("old"));
    std::ifstream reader(folder / "key");
    FilePreferences(folder).setData("key", bytes("new, and longer"));
    std::string text;
    std::getline(reader, text);
    EXPECT_EQ(text, "old");
    EXPECT_EQ(stored("key"), bytes("new, and longer"));
}

TEST_F(FilePreferencesTest, ReadSomethingElseInAFilesPlaceAsAbsent) {
    fs::create_directories(folder / "profiles");
    EXPECT_FALSE(stored("profiles"));
    ASSERT_EQ(::mkfifo((folder / "selection").c_str(), 0600), 0);
    EXPECT_FALSE(stored("selection"));
    fs::create_symlink(folder / "nowhere", folder / "link");
    EXPECT_FALSE(stored("link"));
}

TEST_F(FilePreferencesTest, LeaveNothingBehindWhenAWriteFails) {
    fs::create_directories(folder / "profiles");
    FilePreferences(folder).setData("profiles", bytes("x"));
    EXPECT_TRUE(fs::is_directory(folder / "profiles"));
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(FilePreferencesTest, IgnoreAWriteWithoutAFolderToWriteTo) {
    fs::create_directories(folder.parent_path());
    std::ofstream(folder) << "a file in the folder's place";
    FilePreferences(folder).setData("key", bytes("x"));
    EXPECT_FALSE(stored("key"));
}

TEST_F(FilePreferencesTest, ReadAFileThatCannotBeReachedAsAbsent) {
    fs::create_directories(folder.parent_path());
    fs::create_symlink(folder, folder);
    EXPECT_FALSE(stored("key"));
    fs::remove(folder);
    std::ofstream(folder) << "a file in the folder's place";
    EXPECT_FALSE(stored("key"));
}

TEST_F(FilePreferencesTest, TellWhyAValueCouldNotBeStored) {
    EXPECT_EQ(FilePreferences(folder).setData("key", bytes("x")), std::nullopt);
    EXPECT_EQ(FilePreferences(folder).setData("key", Preferences::Data(1 + (16U << 20U))),
              std::generic_category().message(EFBIG));
    fs::create_directory(folder / "profiles");
    EXPECT_EQ(FilePreferences(folder).setData("profiles", bytes("x")),
              std::generic_category().message(EISDIR));
    EXPECT_EQ(FilePreferences(folder / "key" / "below").setData("key", bytes("x")),
              std::generic_category().message(ENOTDIR));
}

TEST_F(FilePreferencesTest, KeepACopyOfWhatCannotBeRead) {
    FilePreferences preferences(folder);
    EXPECT_FALSE(preferences.keepCopy("absent", "copy"));
    writeFile("huge", "");
    fs::resize_file(folder / "huge", (16U << 20U) + 1);
    EXPECT_TRUE(preferences.keepCopy("huge", "copy"));
    EXPECT_EQ(preferences.setData("huge", bytes("small")), std::nullopt);
    EXPECT_EQ(stored("huge"), bytes("small"));
    EXPECT_EQ(fs::file_size(folder / "copy"), (16U << 20U) + 1);
    EXPECT_FALSE(preferences.keepCopy("huge", "copy")) << "nothing is lost";
    fs::create_directory(folder / "folder");
    EXPECT_TRUE(preferences.keepCopy("folder", "other"));
    EXPECT_EQ(preferences.setData("folder", bytes("x")), std::nullopt);
    EXPECT_EQ(preferences.keys("o"), std::vector<std::string>{"other"});
    preferences.remove("copy");
    EXPECT_FALSE(preferences.contains("copy"));
}

TEST_F(FilePreferencesTest, KeepACopyOfWhatALinkLeadsTo) {
    writeFile("target", "one");
    fs::create_symlink("target", folder / "profiles");
    FilePreferences preferences(folder);
    EXPECT_TRUE(preferences.keepCopy("profiles", "copy"));
    EXPECT_EQ(preferences.setData("profiles", bytes("two")), std::nullopt);
    EXPECT_EQ(stored("copy"), bytes("one"));
    EXPECT_EQ(stored("target"), bytes("two"));
    EXPECT_TRUE(fs::is_symlink(folder / "profiles"));
}

TEST_F(FilePreferencesTest, ReadAFileThatMayNotBeReadAsAbsent) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may read every file";
    FilePreferences(folder).setData("key", bytes("x"));
    fs::permissions(folder / "key", fs::perms::none);
    EXPECT_FALSE(stored("key"));
}

TEST_F(FilePreferencesTest, HoldOneWholeValueOfSeveralWriters) {
    constexpr std::size_t size = 20000;
    std::vector<std::thread> writers;
    for (const char fill : {'a', 'b', 'c'})
        writers.emplace_back([this, fill] {
            for (int count = 0; count < 10; ++count)
                FilePreferences(folder).setData("key", bytes(std::string(size, fill)));
        });
    for (std::thread& writer : writers)
        writer.join();
    const std::optional<Preferences::Data> data = stored("key");
    ASSERT_TRUE(data);
    EXPECT_EQ(*data, Preferences::Data(size, data->front()));
    EXPECT_EQ(fileCount(), 1U);
}

TEST_F(FilePreferencesTest, AreAStoreOfProfiles) {
    const std::vector<Profile> profiles{{UUID::random(), "a", kind::Schedule{}}};
    {
        FilePreferences defaults(folder);
        ProfileStore store(defaults);
        EXPECT_TRUE(store.profiles().empty());
        store.setProfiles(profiles);
        store.setSelection(action::Profile{profiles[0].id});
    }
    FilePreferences defaults(folder);
    EXPECT_EQ(ProfileStore(defaults).profiles(), profiles);
    EXPECT_EQ(ProfileStore(defaults).selection(), Action(action::Profile{profiles[0].id}));
    writeFile("profiles", "[{");
    EXPECT_TRUE(ProfileStore(defaults).profiles().empty());
}

using FilePreferencesDeathTest = FilePreferencesTest;

TEST_F(FilePreferencesDeathTest, TakeSafeKeysOnly) {
    FilePreferences preferences(folder);
    const std::string tooLong(201, 'k');
    for (const std::string& key : {std::string(), std::string("."), std::string(".."),
                                   std::string(".hidden"), std::string("a/b"), std::string("../x"),
                                   std::string("a b"), std::string("\xC3\xA4"), tooLong}) {
        EXPECT_DEATH((void)preferences.data(key), "safe file name") << key;
        EXPECT_DEATH(preferences.setData(key, {}), "safe file name") << key;
    }
}

TEST(ConfigurationFolder, FollowsTheEnvironment) {
    const EnvironmentVariable configuration("XDG_CONFIG_HOME");
    const EnvironmentVariable home("HOME");
    configuration.set("/somewhere/config");
    EXPECT_EQ(configurationFolder(), "/somewhere/config");
    home.set("/home/someone");
    for (const char* ignored : {"", "relative/config"}) {
        configuration.set(ignored);
        EXPECT_EQ(configurationFolder(), "/home/someone/.config");
    }
    configuration.set(std::nullopt);
    EXPECT_EQ(configurationFolder(), "/home/someone/.config");
    home.set(std::nullopt);
    EXPECT_TRUE(configurationFolder().is_absolute());
}

} // namespace tervale
