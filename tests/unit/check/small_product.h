/// A small, good product: one key in each module that the program requires.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "support/temp_dir.h"

namespace paramgen::check::testing {

/// Files of a tree, by their paths.
using Files = std::map<std::string, std::string>;

inline Files SmallProduct() {
    Files files = {
        {"devmng.ini", "[keytone]\nenable = yes\n"},
        {"filemng.ini", "[dtcf]\nshare_percent = 0\n"},
        {"media_common.ini", "[disp.0]\nbg_color = 1\n"},
        {"cam0_comm.ini", "[camera]\nenable = yes\n"},
        {"cam0_comm_record.ini", "[vcap.dev]\nenable = yes\n"},
        {"cam0_comm_photo.ini", "[vcap.dev]\nenable = yes\n"},
        {"workmode_common.ini", "[common]\npoweron_workmode = 0\n"},
        {"workmode_photo.ini", "[osd]\nosdcnt = 0\n"},
        {"workmode_record.ini", "[osd]\nosdcnt = 0\n"},
        {"valueset.ini", "[volume]\nnum = 0\n"},
    };
    std::string list;
    std::string places;
    int number = 0;
    for (const auto& [file, text] : files) {
        const std::string name = file.substr(0, file.size() - 4);
        list += "module" + std::to_string(++number) + " = " + name + "\n";
        places += "[" + name + "]\ncfg_filename = " + file + "\n";
    }
    files["config_cfgaccess_entry.ini"] =
        "[module]\nmodule_num = " + std::to_string(number) + "\n" + list + places;
    return files;
}

/// Lists another module, with this text.
inline void AddModule(const std::string& name, const std::string& text, Files* files) {
    std::string& entry = (*files)["config_cfgaccess_entry.ini"];
    const std::size_t count = files->size() - 1;
    const std::string before = "module_num = " + std::to_string(count) + "\n";
    const std::string after = "module_num = " + std::to_string(count + 1) + "\nmodule" +
                              std::to_string(count + 1) + " = " + name + "\n";
    entry.replace(entry.find(before), before.size(), after);
    entry += "[" + name + "]\ncfg_filename = " + name + ".ini\n";
    (*files)[name + ".ini"] = text;
}

inline void Write(const Files& files, const paramgen::testing::TempDir& directory) {
    for (const auto& [path, text] : files) {
        std::filesystem::create_directories((directory.path() / path).parent_path());
        directory.Write(path, text);
    }
}

}  // namespace paramgen::check::testing
