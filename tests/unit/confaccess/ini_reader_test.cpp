#include "confaccess/ini_reader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

class IniReader : public ::testing::Test {
protected:
    /// Reads a file that consists of `bytes`.
    const Dictionary* Load(const std::string& bytes) const {
        return LoadIniFile(directory_.Write("file.ini", bytes).c_str(), &arena_);
    }

    /// The value of a key in a file with these bytes; "(none)" without value, "(unread)" when the
    /// file is refused.
    std::string ValueIn(const std::string& bytes, const char* key) const {
        const Dictionary* dictionary = Load(bytes);
        if (dictionary == nullptr) {
            return "(unread)";
        }
        const char* value = FindText(*dictionary, key, nullptr);
        return value == nullptr ? "(none)" : value;
    }

    TempDir directory_;
    mutable Arena arena_;  ///< of the dictionaries
};

/// A line "k = vvv…" of `length` characters without its end.
std::string LineOf(std::size_t length) {
    return "k = " + std::string(length - 4, 'v');
}

TEST_F(IniReader, PutsValuesUnderTheirSections) {
    const Dictionary* dictionary =
        Load("top = 0\n[One]\nKey = First\n\n# comment\n[two]\nkey = second\n");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_STREQ(FindText(*dictionary, ":top", nullptr), "0");
    EXPECT_STREQ(FindText(*dictionary, "one:key", nullptr), "First");
    EXPECT_STREQ(FindText(*dictionary, "ONE:Key", nullptr), "First");
    EXPECT_STREQ(FindText(*dictionary, "two:key", nullptr), "second");
    EXPECT_EQ(FindText(*dictionary, "one", "default"), nullptr);
    EXPECT_STREQ(FindText(*dictionary, "three", "default"), "default");
    EXPECT_STREQ(FindText(*dictionary, "one:key ", "default"), "default");
    EXPECT_EQ(dictionary->Count(), 5U);
}

TEST_F(IniReader, NullPathIsAnError) {
    EXPECT_EQ(LoadIniFile(nullptr, &arena_), nullptr);
    EXPECT_EQ(LastIniError(), IniError::kNullArgument);
}

TEST_F(IniReader, MissingFileYieldsNothingAndIsNoReaderError) {
    EXPECT_EQ(LoadIniFile(nullptr, &arena_), nullptr);
    EXPECT_EQ(LoadIniFile((directory_.path() / "missing.ini").c_str(), &arena_), nullptr);
    EXPECT_EQ(LastIniError(), IniError::kNullArgument);
}

TEST_F(IniReader, EmptyFileIsAnEmptyDictionary) {
    const Dictionary* dictionary = Load("");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->Count(), 0U);
}

TEST_F(IniReader, DirectoryInMemoryIsAnEmptyDictionary) {
    // A directory of tmpfs, whose size says nothing about its contents.
    const Dictionary* dictionary = LoadIniFile("/dev/shm", &arena_);
    if (access("/dev/shm", R_OK) == 0) {
        ASSERT_NE(dictionary, nullptr);
        EXPECT_EQ(dictionary->Count(), 0U);
    }
}

TEST_F(IniReader, PipeIsReadLikeAFile) {
    const std::string pipe = (directory_.path() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(pipe) << "[s]\nkey = value\n" << std::flush; });
    const Dictionary* dictionary = LoadIniFile(pipe.c_str(), &arena_);
    writer.join();
    ASSERT_NE(dictionary, nullptr);
    EXPECT_STREQ(FindText(*dictionary, "s:key", nullptr), "value");
}

TEST_F(IniReader, NullDeviceIsAnEmptyDictionary) {
    const Dictionary* dictionary = LoadIniFile("/dev/null", &arena_);
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->Count(), 0U);
}

TEST_F(IniReader, DirectoryIsAnEmptyDictionary) {
    const Dictionary* dictionary = LoadIniFile(directory_.path().c_str(), &arena_);
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->Count(), 0U);
}

TEST_F(IniReader, FileThatCannotBeReadYieldsNothing) {
    // The memory of a process: it can be opened, but reading at address 0 fails.
    EXPECT_EQ(LoadIniFile("/proc/self/mem", &arena_), nullptr);
}

TEST_F(IniReader, LineOf1022CharactersIsTheLongest) {
    EXPECT_EQ(ValueIn(LineOf(1022) + "\n", ":k"), std::string(1018, 'v'));
    EXPECT_EQ(ValueIn(LineOf(1022) + "\nafter = 1\n", ":after"), "1");
}

TEST_F(IniReader, LineOf1023CharactersIsTooLong) {
    static_cast<void>(LoadIniFile(nullptr, &arena_));
    EXPECT_EQ(ValueIn(LineOf(1023) + "\n", ":k"), "(unread)");
    EXPECT_EQ(LastIniError(), IniError::kSyntax);
    EXPECT_EQ(ValueIn("a = b\n" + LineOf(1024) + "\n", ":a"), "(unread)");
    EXPECT_EQ(ValueIn("a = b\n;" + std::string(5000, 'c') + "\n", ":a"), "(unread)");
}

TEST_F(IniReader, LastLineWithoutNewlineMayHave1022Characters) {
    EXPECT_EQ(ValueIn(LineOf(1022), ":k"), std::string(1018, 'v'));
    EXPECT_EQ(ValueIn(LineOf(1023), ":k"), "(unread)");
    EXPECT_EQ(ValueIn(LineOf(1024), ":k"), "(unread)");
}

TEST_F(IniReader, LongestNamesFormOneKey) {
    const std::string section(1020, 's');
    const std::string key(1021, 'k');
    const Dictionary* dictionary = Load("[" + section + "]\n" + key + "=\n");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_STREQ(dictionary->FindText(section + ":" + key, nullptr), "");
}

TEST_F(IniReader, ReadOfOneCharacterIsSkippedWhateverItIs) {
    EXPECT_EQ(ValueIn("a = 1\nx", ":a"), "1");
    EXPECT_EQ(ValueIn("a = 1\n\\", ":a"), "1");
    EXPECT_EQ(ValueIn("a = 1\nx\n", ":a"), "(unread)");
    EXPECT_EQ(ValueIn("a = 1\nxy", ":a"), "(unread)");
}

TEST_F(IniReader, NulCutsItsLineWhichThenIsTooLong) {
    using namespace std::string_literals;
    EXPECT_EQ(ValueIn("a = 1\nb = 2\0 3\nc = 4\n"s, ":a"), "(unread)");
    EXPECT_EQ(ValueIn("b = 2\0\n"s, ":b"), "(unread)");
}

TEST_F(IniReader, NulInTheLastLineOnlyCutsIt) {
    using namespace std::string_literals;
    EXPECT_EQ(ValueIn("a = 1\nb = 2\0 3"s, ":b"), "2");
    EXPECT_EQ(ValueIn("a = 1\nbc\0 = 3"s, ":a"), "(unread)");
    EXPECT_EQ(ValueIn("a = 1\nb = 2\\\0 3"s, ":b"), "(none)");
}

TEST_F(IniReader, LineThatBeginsWithNulIsSkipped) {
    using namespace std::string_literals;
    EXPECT_EQ(ValueIn("\0garbage\na = 1\n"s, ":a"), "1");
    EXPECT_EQ(ValueIn("x\0garbage\na = 1\n"s, ":a"), "1");
}

TEST_F(IniReader, BackslashBeforeANewlineBelongsToTheValue) {
    const Dictionary* dictionary = Load("a = one\\\nb = two\n");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_STREQ(FindText(*dictionary, ":a", nullptr), "one\\");
    EXPECT_STREQ(FindText(*dictionary, ":b", nullptr), "two");
}

TEST_F(IniReader, LastLineThatEndsInABackslashIsDropped) {
    EXPECT_EQ(ValueIn("a = one\nb = two\\", ":b"), "(none)");
    EXPECT_EQ(ValueIn("a = one\nb = two\\", ":a"), "one");
    EXPECT_EQ(ValueIn("a = one\nno value at all\\", ":a"), "one");
    EXPECT_EQ(ValueIn("a = one\n# comment\\", ":a"), "one");
}

TEST_F(IniReader, BackslashIsLookedForBeforeBlanksAreStripped) {
    EXPECT_EQ(ValueIn("a = one\\ ", ":a"), "one\\");
    EXPECT_EQ(ValueIn("a = one\\\r", ":a"), "one\\");
    EXPECT_EQ(ValueIn("a = one ; why\\", ":a"), "(none)");
}

TEST_F(IniReader, CarriageReturnsAreWhiteSpace) {
    const Dictionary* dictionary = Load("[s]\r\na = one\r\n\r\nb = 'two'\r\nc =\r\n");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_STREQ(FindText(*dictionary, "s:a", nullptr), "one");
    EXPECT_STREQ(FindText(*dictionary, "s:b", nullptr), "two");
    EXPECT_STREQ(FindText(*dictionary, "s:c", nullptr), "");
}

TEST_F(IniReader, OneSyntaxErrorYieldsNoDictionary) {
    static_cast<void>(LoadIniFile(nullptr, &arena_));
    EXPECT_EQ(ValueIn("a = 1\nonly text\nb = 2\n", ":a"), "(unread)");
    EXPECT_EQ(LastIniError(), IniError::kSyntax);
    EXPECT_EQ(ValueIn("[a] # x\nb = 2\n", ":b"), "(unread)");
}

TEST_F(IniReader, LastOfRepeatedKeysCounts) {
    EXPECT_EQ(ValueIn("[s]\nkey = one\nKEY = two\n", "s:key"), "two");
    EXPECT_EQ(ValueIn("[s]\nkey = one\nkey =\n", "s:key"), "");
}

TEST_F(IniReader, RepeatedSectionContinues) {
    const Dictionary* dictionary = Load("[s]\na = 1\nb = 1\n[t]\na = 2\n[S]\nb = 3\nc = 3\n");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_STREQ(FindText(*dictionary, "s:a", nullptr), "1");
    EXPECT_STREQ(FindText(*dictionary, "s:b", nullptr), "3");
    EXPECT_STREQ(FindText(*dictionary, "s:c", nullptr), "3");
    EXPECT_STREQ(FindText(*dictionary, "t:a", nullptr), "2");
}

TEST_F(IniReader, EmptyBracketsKeepTheSection) {
    EXPECT_EQ(ValueIn("[s]\na = 1\n[]\nb = 2\n", "s:b"), "2");
    EXPECT_EQ(ValueIn("[]\nb = 2\n", ":b"), "2");
    EXPECT_EQ(Load("[]\n")->FindText("", "default"), nullptr);
}

TEST_F(IniReader, BlankBracketsMakeTheSectionEmpty) {
    EXPECT_EQ(ValueIn("[s]\na = 1\n[ ]\nb = 2\n", ":b"), "2");
    EXPECT_EQ(ValueIn("[s]\na = 1\n[ ]\nb = 2\n", "s:b"), "(none)");
}

TEST_F(IniReader, SectionMarkerHidesTheKeyOfItsName) {
    EXPECT_EQ(ValueIn("[a]\nb = 1\n[a:b]\n", "a:b"), "(none)");
    EXPECT_EQ(ValueIn("[a:b]\n[a]\nb = 1\n", "a:b"), "1");
    EXPECT_EQ(ValueIn("[a:b]\nc = 1\n", "a:b:c"), "1");
    EXPECT_EQ(ValueIn("[a]\nb:c = 1\n", "a:b:c"), "1");
}

TEST_F(IniReader, OnlyTheFirst1024CharactersOfAKeyCount) {
    const std::string section(600, 's');
    const std::string item(423, 'k');  // with the colon, 1024 characters
    const Dictionary* dictionary = Load("[" + section + "]\n" + item + " = value\n");
    ASSERT_NE(dictionary, nullptr);
    const std::string key = section + ":" + item;
    EXPECT_STREQ(FindText(*dictionary, key.c_str(), nullptr), "value");
    EXPECT_STREQ(FindText(*dictionary, (key + "more").c_str(), nullptr), "value");
    EXPECT_EQ(FindText(*dictionary, key.substr(1).c_str(), nullptr), nullptr);
}

TEST_F(IniReader, IntegersAreInPrefixedNotation) {
    const Dictionary* dictionary =
        Load("[s]\nd = 12\nh = 0x12\no = 012\nt = abc\ne =\nq = '0x7'\n[s:n]\n");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(FindInteger(*dictionary, "s:d", 5), 12);
    EXPECT_EQ(FindInteger(*dictionary, "S:H", 5), 18);
    EXPECT_EQ(FindInteger(*dictionary, "s:o", 5), 10);
    EXPECT_EQ(FindInteger(*dictionary, "s:t", 5), 0);
    EXPECT_EQ(FindInteger(*dictionary, "s:e", 5), 0);
    EXPECT_EQ(FindInteger(*dictionary, "s:q", 5), 7);
    EXPECT_EQ(FindInteger(*dictionary, "s:missing", 5), 5);
    EXPECT_EQ(FindInteger(*dictionary, "s:n", 5), 5);
}

TEST_F(IniReader, AbsentKeysAreAbsentHoweverManyThereAre) {
    // Every line is a key, the last one too.
    std::string bytes;
    for (int count = 1; count < 70; ++count) {
        bytes += (count == 1 ? "k" : "\nk") + std::to_string(count) + "=1";
        const Dictionary* dictionary = Load(bytes);
        ASSERT_NE(dictionary, nullptr);
        EXPECT_EQ(dictionary->Count(), static_cast<unsigned>(count));
        for (int other = 0; other < 100; ++other) {
            const bool isThere = other >= 1 && other <= count;
            ASSERT_STREQ(FindText(*dictionary, ":k" + std::to_string(other), "no"),
                         isThere ? "1" : "no");
        }
    }
}

TEST_F(IniReader, FileOfAHundredThousandKeysLoadsInShortTime) {
    std::string bytes;
    for (int number = 0; number < 100'000; ++number) {
        if (number % 100 == 0) {
            bytes += "[section" + std::to_string(number / 100) + "]\n";
        }
        bytes += "key" + std::to_string(number) + " = " + std::to_string(number) + "\n";
    }
    const std::string path = directory_.Write("large.ini", bytes);
    const auto start = std::chrono::steady_clock::now();
    const Dictionary* dictionary = LoadIniFile(path.c_str(), &arena_);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->Count(), 101'000U);
    EXPECT_STREQ(FindText(*dictionary, "section0:key0", nullptr), "0");
    EXPECT_STREQ(FindText(*dictionary, "section999:key99999", nullptr), "99999");
}

}  // namespace
}  // namespace paramgen::testing
