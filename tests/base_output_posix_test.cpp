#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <functional>

#include "tests/output_writing.h"

namespace {

namespace fs = std::filesystem;
using namespace platen::test;
using platen::OutputFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr uid_t kOther = 12345;

struct stat StatusOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status;
}

mode_t ModeOf(const std::string& path) {
    return StatusOf(path).st_mode & 07777U;
}

/// Runs in a process of its own, which fails when an expectation does; -1 when it was killed.
int InChild(const std::function<void()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        run();
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The same as a user who owns nothing; for root alone.
int AsOther(const std::function<void()>& run) {
    return InChild([&run] {
        ASSERT_TRUE(setgid(kOther) == 0 && setuid(kOther) == 0);
        run();
    });
}

TEST_F(Output, OthersOpenItBeforeItHasThePermissions) {
    Put("private.tif", "old");
    chmod(At("private.tif").c_str(), 0604);
    const mode_t before = umask(0);
    {
        OutputFile output;
        ASSERT_TRUE(output.Create(At("private.tif").c_str()));
        EXPECT_EQ(ModeOf(At(Names().back())), 0600U);
        EXPECT_TRUE(output.Commit());
    }
    EXPECT_EQ(ModeOf(At("private.tif")), 0604U);
    // Where nothing stood, it has what any new file has.
    umask(027);
    EXPECT_EQ(Save("new.tif", "new"), "");
    EXPECT_EQ(ModeOf(At("new.tif")), 0640U);
    umask(before);
}

/// An access list for one more user, as the system keeps it; `permissions` are his and the mask.
std::string AccessList(std::uint8_t permissions) {
    std::string list = {2, 0, 0, 0};
    const auto add = [&list](char tag, std::uint8_t allowed, std::uint32_t id) {
        list += {tag, 0, static_cast<char>(allowed), 0};
        list.append(reinterpret_cast<const char*>(&id), sizeof(id));
    };
    add(0x01, 6, ~0U);
    add(0x02, permissions, kOther);
    add(0x04, 0, ~0U);
    add(0x10, permissions, ~0U);
    add(0x20, 0, ~0U);
    return list;
}

std::string Attribute(const std::string& path, const char* name) {
    std::array<char, 256> value = {};
    const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
    return {value.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

bool SetAttribute(const std::string& path, const char* name, const std::string& value) {
    return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

TEST_F(Output, AnAttributeOrAnAccessListIsLostOrInherited) {
    constexpr const char* kAccess = "system.posix_acl_access";
    constexpr const char* kDefault = "system.posix_acl_default";
    Put("plain.tif", "old");
    Put("shared.tif", "old");
    chmod(At("plain.tif").c_str(), 0600);
    if (!SetAttribute(At("shared.tif"), "user.origin", "a scanner") ||
        !SetAttribute(At("shared.tif"), kAccess, AccessList(4)) ||
        !SetAttribute(At("."), kDefault, AccessList(6))) {
        GTEST_SKIP() << "the file system has no such attributes";
    }
    const mode_t mode = ModeOf(At("shared.tif"));
    EXPECT_EQ(Save("shared.tif", "new"), "");
    EXPECT_EQ(Attribute(At("shared.tif"), "user.origin"), "a scanner");
    EXPECT_EQ(Attribute(At("shared.tif"), kAccess), AccessList(4));
    EXPECT_EQ(ModeOf(At("shared.tif")), mode);
    // A new file inherits the folder's list; one that replaces another has what that had.
    EXPECT_EQ(Save("plain.tif", "new"), "");
    EXPECT_EQ(Attribute(At("plain.tif"), kAccess), "");
    EXPECT_EQ(ModeOf(At("plain.tif")), 0600U);
    EXPECT_EQ(Save("new.tif", "new"), "");
    EXPECT_EQ(Attribute(At("new.tif"), kAccess), AccessList(6));
}

TEST_F(Output, AnothersFileBecomesOnesOwnUnasked) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs two users";
    }
    Put("others.tif", "old");
    ASSERT_EQ(chown(At("others.tif").c_str(), kOther, kOther), 0);
    EXPECT_EQ(Save("others.tif", "new"), "");
    EXPECT_EQ(StatusOf(At("others.tif")).st_uid, kOther);
    EXPECT_EQ(StatusOf(At("others.tif")).st_gid, kOther);

    ASSERT_EQ(chmod(At(".").c_str(), 0777), 0);
    Put("open.tif", "old");
    ASSERT_EQ(chmod(At("open.tif").c_str(), 0666), 0);
    Put("roots.tif", "old");
    ASSERT_EQ(chmod(At("roots.tif").c_str(), 0664), 0);
    EXPECT_EQ(AsOther([this] {
                  EXPECT_THAT(Save("open.tif", "new"), HasSubstr("owner and group cannot be kept"));
                  EXPECT_THAT(Save("roots.tif", "new"), HasSubstr("write-protected"));
              }),
              0);
    EXPECT_EQ(Contents("open.tif") + Contents("roots.tif"), "oldold");
    EXPECT_EQ(AsOther([this] {
                  EXPECT_THAT(Save("roots.tif", "new", true),
                              HasSubstr("owner and group could not be kept\n"));
              }),
              0);
    EXPECT_EQ(Contents("roots.tif"), "new");
    EXPECT_EQ(StatusOf(At("roots.tif")).st_uid, kOther);
    EXPECT_EQ(ModeOf(At("roots.tif")), 0644U) << "what was the group's is not for another group";
    EXPECT_THAT(Names(), SizeIs(3));
}

TEST_F(Output, AFolderThatMayNotBeWrittenOrReadHasAnotherReason) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs two users";
    }
    const auto reason = [this](const char* name) {
        OutputFile output;
        EXPECT_FALSE(output.Create(At(name).c_str()));
        return output.Why().systemError;
    };
    for (const char* folder : {"closed", "blind"}) {
        fs::create_directory(At(folder));
        Put(std::string(folder) + "/old.tif", "old");
        ASSERT_EQ(chown(At(std::string(folder) + "/old.tif").c_str(), kOther, kOther), 0);
    }
    chmod(At(".").c_str(), 0755);
    chmod(At("blind").c_str(), 0733);
    EXPECT_EQ(AsOther([&] {
                  EXPECT_EQ(reason("closed/new.tif"), EACCES);
                  EXPECT_EQ(reason("closed/old.tif"), EACCES);
                  EXPECT_EQ(reason("closed/old.tif/new.tif"), ENOTDIR);
                  EXPECT_EQ(reason("blind/old.tif"), EACCES);
                  EXPECT_EQ(Save("blind/new.tif", "new"), "");
              }),
              0);
    EXPECT_EQ(Contents("closed/old.tif") + Contents("blind/old.tif"), "oldold");
    EXPECT_EQ(Contents("blind/new.tif"), "new");
}

TEST_F(Output, ALinkIsReplacedInsteadOfWhereItLeads) {
    fs::create_directory(At("folder"));
    Put("folder/a.tif", "old");
    fs::create_symlink("a.tif", At("folder/second"));
    fs::create_symlink("folder/second", At("first"));
    fs::create_symlink(At("folder/new.tif"), At("dangling"));
    fs::create_symlink("none/new.tif", At("nowhere"));
    fs::create_symlink("circle", At("circle"));
    EXPECT_EQ(Save("first", "new"), "");
    EXPECT_EQ(Save("dangling", "made"), "");
    EXPECT_TRUE(fs::is_symlink(At("first")) && fs::is_symlink(At("folder/second")));
    EXPECT_TRUE(fs::is_symlink(At("dangling")));
    EXPECT_EQ(Contents("folder/a.tif"), "new");
    EXPECT_EQ(Contents("folder/new.tif"), "made");
    EXPECT_EQ(Save("nowhere", "new"), "the output could not be created");
    EXPECT_EQ(Save("circle", "new"), "the output could not be created");
    EXPECT_THAT(Names(), ElementsAre("circle", "dangling", "first", "folder", "nowhere"));
}

TEST_F(Output, ANameOfFullLengthIsRefusedOrCutWithinACharacter) {
    // Each is as long as a name may be; cut at the same place, they end within other characters.
    std::vector<std::string> names = {std::string(251, 'a') + ".tif"};
    for (const char* character : {"\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x93\xB7"}) {
        std::string name = names.front();
        const std::size_t size = std::string(character).size();
        name.replace(236, size, character);
        names.push_back(name);
        names.push_back(name.replace(236, size, size, 'b').replace(238, size, character));
    }
    names.emplace_back("short");
    for (const std::string& name : names) {
        for (const char* bytes : {"new", "newer"}) {
            {
                OutputFile output;
                ASSERT_TRUE(output.Create(At(name).c_str())) << output.Why().systemError;
                for (const std::string& there : Names()) {
                    const std::size_t cut = std::min(there.find('.', 200), name.size() - 1);
                    EXPECT_NE(static_cast<unsigned char>(name[cut]) & 0xC0U, 0x80U) << there;
                }
            }
            EXPECT_EQ(Save(name, bytes), "");
            EXPECT_EQ(Contents(name), bytes);
        }
    }
    EXPECT_THAT(Names(), SizeIs(names.size()));
}

TEST_F(Output, AKilledProcessesFileStaysOrALivingOnesGoes) {
    Put("a.tif", "old");
    const auto begin = [this](OutputFile& output) {
        ASSERT_TRUE(output.Create(At("a.tif").c_str()) && output.Write("half", 4));
    };
    EXPECT_EQ(InChild([&] {
                  OutputFile output;
                  begin(output);
                  kill(getpid(), SIGKILL);
              }),
              -1);
    EXPECT_THAT(Names(), SizeIs(2)) << "nobody could remove it";
    EXPECT_EQ(Contents("a.tif"), "old");

    // While another process is at it, this one removes what is left and nothing else.
    std::array<int, 2> begun = {};
    std::array<int, 2> goOn = {};
    ASSERT_TRUE(pipe(begun.data()) == 0 && pipe(goOn.data()) == 0);
    const pid_t child = fork();
    if (child == 0) {
        OutputFile output;
        begin(output);
        char byte = 0;
        const bool told = write(begun[1], "x", 1) == 1 && read(goOn[0], &byte, 1) == 1;
        _exit(told && output.Commit() ? 0 : 1);
    }
    char byte = 0;
    EXPECT_EQ(read(begun[0], &byte, 1), 1);
    EXPECT_THAT(Names(), SizeIs(2)) << "the killed one's is gone, the other one's is there";
    EXPECT_EQ(Save("a.tif", "mine"), "");
    EXPECT_EQ(Contents("a.tif"), "mine");
    EXPECT_THAT(Names(), SizeIs(2));
    EXPECT_EQ(write(goOn[1], "x", 1), 1);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Contents("a.tif"), "half");
    EXPECT_THAT(Names(), ElementsAre("a.tif"));
    for (const int descriptor : {begun[0], begun[1], goOn[0], goOn[1]}) {
        close(descriptor);
    }
}

TEST_F(Output, WhatIsPrintedToAClosedStreamGetsIntoTheFile) {
    Put("a.tif", "old");
    EXPECT_EQ(InChild([this] {
                  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
                      close(stream);
                  }
                  OutputFile output;
                  ASSERT_TRUE(output.Create(At("a.tif").c_str()) && output.Write("new", 3));
                  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
                      EXPECT_EQ(write(stream, "junk", 4), -1);
                  }
                  EXPECT_TRUE(output.Commit());
              }),
              0);
    EXPECT_EQ(Contents("a.tif"), "new");
}

TEST_F(Output, SomethingInItsWayIsWrittenTo) {
    Put("a.tif", "old");
    Put("victim", "precious");
    std::string left;
    {
        OutputFile output;
        ASSERT_TRUE(output.Create(At("a.tif").c_str()));
        left = Names()[1];
    }
    fs::create_symlink("victim", At(left));
    EXPECT_EQ(Save("a.tif", "new"), "");
    EXPECT_TRUE(fs::is_symlink(At(left)));
    for (const char digit : {'1', '2', '3'}) {
        left[left.size() - 6] = digit;
        ASSERT_EQ(mkfifo(At(left).c_str(), 0600), 0);
    }
    EXPECT_EQ(Save("a.tif", "newer"), "the output is being written by others");
    EXPECT_EQ(Contents("victim"), "precious");
    EXPECT_EQ(Contents("a.tif"), "new");
    EXPECT_THAT(Names(), SizeIs(6));
    for (const char* name : {"/dev/full", "/dev/null"}) {
        OutputFile output;
        EXPECT_FALSE(output.Create(name));
        EXPECT_STREQ(output.Why().reason, "the output is not a regular file");
    }
    EXPECT_EQ(Save(left, "new"), "the output is not a regular file");
}

}  // namespace
