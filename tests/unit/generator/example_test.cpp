// The example product, loaded as a whole.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "confaccess/confaccess.h"
#include "generator/image.h"
#include "generator/load.h"
#include "log/console_log.h"
#include "support/captured_output.h"
#include "support/records.h"
#include "support/table_walk.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

const std::filesystem::path kExample = PARAMGEN_EXAMPLES "/dashcam";

/// A copy of the example that a test may change.
class ExampleCopy {
public:
    ExampleCopy() {
        std::filesystem::copy(kExample, directory_.path(),
                              std::filesystem::copy_options::recursive);
    }

    /// Replaces a line of a file.
    void Replace(const std::string& file, const std::string& from, const std::string& to) const {
        std::string text = ReadFile(directory_.path() / file);
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << file << ": " << from;
        directory_.Write(file, text.replace(at, from.size(), to));
    }

    /// Loads it into `g_image`.
    Status Load(std::string* output) const {
        const WorkingDirectory here(directory_.path());
        ConsoleLogSetup(1, 0, kConsoleDebug);
        BuildFrame(&g_image);
        Status status = 0;
        *output = CaptureStdout([&] { status = PDT_INIPARAM_LoadCfg(); });
        if (status != 0) {
            CaptureStdout([] { EXPECT_EQ(ZV_CONFACCESS_Deinit("productini"), 0); });
        }
        return status;
    }

private:
    TempDir directory_;
};

TEST(Example, CameraIsLoadedWhereItBelongs) {
    std::string output;
    ASSERT_EQ(ExampleCopy().Load(&output), 0) << output;
    const std::string image(reinterpret_cast<const char*>(&g_image), sizeof g_image);
    EXPECT_EQ(image.substr(9644, 20), std::string("\0\0\0\0"  // the gap
                                                  "\0\0\0\0"  // the camera's number
                                                  "\1\0\0\0\1\0\0\0\1\0\0\0",
                                                  20));
    EXPECT_EQ(image.substr(9664, 8), std::string("\1\0\0\0\1\0\0\0", 8));  // record
    EXPECT_EQ(image.substr(11976, 16), std::string("\0\0\0\0\xb0\1\0\0\xb0\1\0\0\2\0\0\0", 16));
    EXPECT_EQ(image.substr(13140, 16), std::string("\1\0\0\0\xe0\1\0\0\x90\1\0\0\3\0\0\0", 16));
    EXPECT_EQ(image.substr(13156, 8), std::string("\0\0\0\0\x1e\0\0\0", 8));  // 2160P_30
    EXPECT_EQ(image.substr(20616, 4), std::string("\x30\0\0\0", 4));          // a photo's
}

TEST(Example, BadCameraValueGoesUpToTheTop) {
    const ExampleCopy example;
    example.Replace("camera/cam0_comm_photo.ini", "[venc.1]    ; photo\nenable = 1\nvenchdl = 2",
                    "[venc.1]\nenable = 1\nvenchdl = 2147483648");
    std::string output;
    EXPECT_EQ(example.Load(&output), -1);
    EXPECT_THAT(
        ErrorsOf(output),
        ElementsAre("PDT_INIPARAM_LoadIntValueByNodePrefix: [venc.1:venchdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommAttr: [venchdl] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamVencCommCfg: [venc comm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadMediaModeCommCfg: [venc comm] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCamMediaCfg: [cam0_comm_photo] failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadCfg: [VideoMode Conf] failed[0xFFFFFFFF]\n"));
}

/// The keys ("section:key", in lower case) of a file.
std::vector<std::string> KeysOf(const std::string& text) {
    std::vector<std::string> keys;
    std::string section;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line.resize(std::min(line.find(';'), line.size()));
        std::erase_if(line, [](unsigned char c) { return std::isspace(c) != 0; });
        std::transform(line.begin(), line.end(), line.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (line.empty() || line[0] == '#') {
            continue;
        }
        if (line[0] == '[') {
            section = line.substr(1, line.size() - 2);
            continue;
        }
        keys.push_back(section + ":" + line.substr(0, line.find('=')));
    }
    return keys;
}

/// The file of each module of the example.
std::map<std::string, std::filesystem::path> ModuleFiles() {
    std::map<std::string, std::filesystem::path> files;
    std::istringstream lines(ReadFile(kExample / "config_cfgaccess_entry.ini"));
    std::string module;
    std::filesystem::path directory;
    for (std::string line; std::getline(lines, line);) {
        std::erase(line, ' ');
        const std::string value = line.substr(line.find('=') + 1);
        if (line.starts_with('[')) {
            module = line.substr(1, line.size() - 2);
            directory.clear();
        } else if (line.starts_with("path=")) {
            directory = value;
        } else if (line.starts_with("cfg_filename=")) {
            files[module] = kExample / directory / value;
        }
    }
    return files;
}

/// The keys, in lower case, that the rows of the image are read from, by module.
std::map<std::string, std::set<std::string>> KeysThatAreRead() {
    std::map<std::string, std::set<std::string>> keys;
    for (const WalkedField& walked : WalkTable(kImageTable, "")) {
        if (!walked.key.empty()) {
            std::string key = walked.key;
            std::transform(key.begin(), key.end(), key.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
            keys[walked.module].insert(key);
        }
    }
    // The walk shows the first module of a search only, and not the key that the search reads.
    keys["cam0_ldccfg_0"].insert("common:mediamode");
    keys["cam0_ldccfg_1"] = keys["cam0_ldccfg_0"];
    return keys;
}

TEST(Example, NoKeyIsLeftUnused) {
    const auto read = KeysThatAreRead();
    const auto files = ModuleFiles();
    EXPECT_EQ(files.size(), 18U);
    std::vector<std::string> unused;
    int used = 0;
    for (const auto& [module, file] : files) {
        const auto keys = read.find(module);
        ASSERT_NE(keys, read.end()) << "no section reads the module " << module;
        for (const std::string& key : KeysOf(ReadFile(file))) {
            if (keys->second.count(key) == 0) {
                unused.push_back(module + " " + key);
            }
            ++used;
        }
    }
    EXPECT_THAT(unused, ElementsAre());
    EXPECT_GT(used, 900);
}

}  // namespace
}  // namespace paramgen::testing
