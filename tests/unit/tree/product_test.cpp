#include "tree/product.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace paramgen::tree {
namespace {

using testing::TempDir;

void WriteEntry(const TempDir& directory, const std::string& text) {
    directory.Write("config_cfgaccess_entry.ini", text);
}

std::vector<ModuleFate> Fates(const Product& product) {
    std::vector<ModuleFate> fates;
    for (const Module& module : product.modules()) {
        fates.push_back(module.fate);
    }
    return fates;
}

TEST(Product, ReadsTheModulesThatAreListed) {
    const TempDir directory;
    std::filesystem::create_directory(directory.path() / "sub");
    directory.Write("a.ini", "[s]\nk=1\n");
    directory.Write("sub/b.ini", "[s]\nk=2\n");
    WriteEntry(directory,
               "[module]\nmodule_num=3\nmodule1=a\nmodule2=b\nmodule3=c\n[a]\ncfg_filename=a.ini\n"
               "path=nowhere\n[b]\npath=./sub/\ncfg_filename=b.ini\n[c]\npath=./sub\n"
               "cfg_filename=b.ini\n");
    const Product product(directory.path().string());
    EXPECT_EQ(product.entryFate(), EntryFate::kRead);
    EXPECT_EQ(product.moduleCount(), 3);
    ASSERT_EQ(Fates(product), (std::vector<ModuleFate>(3, ModuleFate::kRead)));
    EXPECT_EQ(product.modules()[0].file->shown, directory.path().string() + "/a.ini");
    EXPECT_EQ(product.modules()[1].file->path, "./sub/b.ini");
    EXPECT_EQ(product.modules()[1].file->shown, directory.path().string() + "/sub/b.ini");
    EXPECT_EQ(product.modules()[1].file, product.modules()[2].file);
    EXPECT_EQ(product.files().size(), 2U);
    ASSERT_NE(product.FindModule("c"), nullptr);
    EXPECT_EQ(product.FindModule("C"), nullptr);
}

TEST(Product, ReadsAFileOnceHoweverItsPathIsWritten) {
    const TempDir directory;
    std::filesystem::create_directory(directory.path() / "sub");
    directory.Write("a.ini", "[s]\nk=1\n");
    WriteEntry(directory,
               "[module]\nmodule_num=4\nmodule1=a\nmodule2=b\nmodule3=c\nmodule4=d\n"
               "[a]\ncfg_filename=a.ini\n[b]\npath=./\ncfg_filename=a.ini\n"
               "[c]\npath=" +
                   directory.path().string() +
                   "//./\ncfg_filename=a.ini\n"
                   "[d]\npath=./sub/..\ncfg_filename=a.ini\n");
    const Product product(directory.path().string());
    ASSERT_EQ(Fates(product), (std::vector<ModuleFate>(4, ModuleFate::kRead)));
    EXPECT_EQ(product.modules()[1].file, product.modules()[0].file);
    EXPECT_EQ(product.modules()[2].file, product.modules()[0].file);
    EXPECT_NE(product.modules()[3].file, product.modules()[0].file)
        << "where '..' leads depends on links";
    EXPECT_EQ(product.files().size(), 2U);
    EXPECT_EQ(product.opened().size(), 4U);
    EXPECT_EQ(product.opened().at("./a.ini"), product.modules()[0].file);
}

TEST(Product, AnEntryFileThatIsALinkHasItsModulesBesideWhatItLeadsTo) {
    const TempDir directory;
    std::filesystem::create_directory(directory.path() / "real");
    std::filesystem::create_directory(directory.path() / "link");
    directory.Write("real/config_cfgaccess_entry.ini",
                    "[module]\nmodule_num=1\nmodule1=a\n[a]\ncfg_filename=a.ini\n");
    directory.Write("real/a.ini", "[s]\nk=1\n");
    directory.Write("link/a.ini", "[s]\nk=2\n");
    std::filesystem::create_symlink("../real/config_cfgaccess_entry.ini",
                                    directory.path() / "link/config_cfgaccess_entry.ini");
    const Product product((directory.path() / "link").string());
    ASSERT_EQ(Fates(product), (std::vector<ModuleFate>(1, ModuleFate::kRead)));
    EXPECT_EQ(product.modules()[0].file->shown, directory.path().string() + "/link/../real/a.ini");
    const testing::WorkingDirectory inside(directory.path() / "link");
    EXPECT_EQ(Product(".").modules()[0].file->shown, "../real/a.ini");
}

TEST(Product, TellsWhatBecameOfAModule) {
    const TempDir directory;
    directory.Write("bad.ini", "nonsense\n");
    std::filesystem::create_directory(directory.path() / "folder");
    const std::string longName(115, 'n');
    WriteEntry(
        directory,
        "[module]\nmodule_num=6\nmodule1=gone\nmodule2=bad\nmodule3=folder\nmodule4=" + longName +
            "\nmodule5=long\nmodule6=none\n[gone]\ncfg_filename=gone.ini\n[bad]\n"
            "cfg_filename=bad.ini\n[folder]\ncfg_filename=folder\n[long]\npath=/" +
            std::string(250, 'p') + "\ncfg_filename=long.ini\n");
    const Product product(directory.path().string());
    EXPECT_EQ(Fates(product),
              (std::vector<ModuleFate>{ModuleFate::kUnreadable, ModuleFate::kRefused,
                                       ModuleFate::kRead, ModuleFate::kNameTooLong,
                                       ModuleFate::kPathTooLong, ModuleFate::kNoFileName}));
    EXPECT_TRUE(product.modules()[2].file->isDirectory);
}

TEST(Product, EndsAtAModuleThatEndsTheRun) {
    const TempDir directory;
    directory.Write("a.ini", "");
    WriteEntry(directory,
               "[module]\nmodule_num=9\nmodule1=a\nmodule2=a\n[a]\ncfg_filename=a.ini\n");
    EXPECT_EQ(Fates(Product(directory.path().string())),
              (std::vector<ModuleFate>{ModuleFate::kRead, ModuleFate::kRepeated}));
    WriteEntry(directory, "[module]\nmodule_num=0x7fffffff\n");
    EXPECT_EQ(Fates(Product(directory.path().string())),
              (std::vector<ModuleFate>{ModuleFate::kNoName}));
}

TEST(Product, AModuleThatWasLeftOutMayComeAgain) {
    const TempDir directory;
    WriteEntry(directory,
               "[module]\nmodule_num=2\nmodule1=a\nmodule2=a\n[a]\ncfg_filename=gone.ini\n");
    EXPECT_EQ(Fates(Product(directory.path().string())),
              (std::vector<ModuleFate>{ModuleFate::kUnreadable, ModuleFate::kUnreadable}));
}

TEST(Product, TellsWhatBecameOfTheEntryFile) {
    const TempDir directory;
    EXPECT_EQ(Product(directory.path().string()).entryFate(), EntryFate::kMissing);
    WriteEntry(directory, "bad\n");
    EXPECT_EQ(Product(directory.path().string()).entryFate(), EntryFate::kRefused);
    WriteEntry(directory, "[module]\nmodule_num=0\n");
    EXPECT_EQ(Product(directory.path().string()).entryFate(), EntryFate::kNoCount);
    WriteEntry(directory, "[module]\nmodule_num=010\n");
    EXPECT_EQ(Product(directory.path().string()).moduleCount(), 8);
}

TEST(Product, ShowsPathsAsTheDirectoryWasGiven) {
    const TempDir directory;
    WriteEntry(directory, "");
    const testing::WorkingDirectory inside(directory.path());
    EXPECT_EQ(Product(".").Shown("./media//a.ini"), "media//a.ini");
    EXPECT_EQ(Product(".").entry().shown, "config_cfgaccess_entry.ini");
    EXPECT_EQ(Product("dir/").Shown("a.ini"), "dir/a.ini");
    EXPECT_EQ(Product("dir").Shown("/etc/a.ini"), "/etc/a.ini");
}

}  // namespace
}  // namespace paramgen::tree
