#include "Platform/RuntimeFolder.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace tervale;

TEST(RuntimeFolder, MakesAFolderThatOthersCannotEnter) {
    const TemporaryFolder folder;
    ASSERT_TRUE(makePrivateFolder(folder.path / "own"));
    struct stat status {};
    ASSERT_EQ(::stat((folder.path / "own").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    EXPECT_TRUE(makePrivateFolder(folder.path / "own"));
}

TEST(RuntimeFolder, TrustsNoFolderThatOthersCanWriteTo) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkdir((folder.path / "open").c_str(), 0700), 0);
    ASSERT_EQ(::chmod((folder.path / "open").c_str(), 0770), 0);
    EXPECT_FALSE(makePrivateFolder(folder.path / "open"));
    std::filesystem::create_symlink(folder.path, folder.path / "link");
    EXPECT_FALSE(isPrivateFolder(folder.path / "link"));
    EXPECT_FALSE(isPrivateFolder(folder.path / "absent"));
    EXPECT_FALSE(makePrivateFolder(folder.path / "absent" / "below"));
}
