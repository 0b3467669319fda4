#include "fuzz/product.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <string>

#include "confaccess/confaccess.h"
#include "confaccess/registry.h"
#include "generator/image.h"
#include "generator/load.h"

namespace paramgen::testing {
namespace {

constexpr char kEntry[] = "entry";

/// Module names and the texts of their files; "entry" is the entry file.
using Product = std::map<std::string, std::string>;

Product NeededModules() {
    Product product;
    for (const char* module :
         {"devmng", "filemng", "media_common", "cam0_comm", "cam0_comm_record", "cam0_comm_photo",
          "workmode_common", "workmode_photo", "workmode_record", "valueset"}) {
        product[module];
    }
    return product;
}

/// The files in the fuzz directory. Only changed ones are written: most inputs change few of them.
class Files {
public:
    void Write(const std::string& name, const std::string& text) {
        const auto [file, isNew] = texts_.try_emplace(name, text);
        if (isNew || file->second != text) {
            WriteBytes(FuzzDirectory() + "/" + name, text);
            file->second = text;
        }
    }

    void Remove(const std::string& name) {
        if (texts_.erase(name) != 0) {
            Require(unlink((FuzzDirectory() + "/" + name).c_str()) == 0, "a file to remove");
        }
    }

    bool Has(const std::string& name) const { return texts_.count(name) != 0; }

private:
    std::map<std::string, std::string> texts_;
};

std::string FileOf(int number) {
    return "m" + std::to_string(number) + ".ini";
}

Product ReadProduct(Input input) {
    Product product = NeededModules();
    std::string* text = &product["devmng"];
    while (!input.IsEmpty()) {
        const std::string line = input.TextUpTo('\n');
        if (line.starts_with("@-")) {
            product.erase(line.substr(2));
            text = nullptr;
        } else if (line.starts_with("@")) {
            text = &product[line.substr(1)];
        } else if (text != nullptr) {
            *text += line + "\n";
        }
    }
    return product;
}

/// Whether the entry file names files outside of the product, whose contents may be endless.
bool LeadsAstray(const Product& product) {
    const auto entry = product.find(kEntry);
    const auto names = [&](const char* text) {
        return entry != product.end() && entry->second.find(text) != std::string::npos;
    };
    return names("/dev") || names("dev/") || names("proc");
}

/// Writes the product to the fuzz directory, and removes the files of the one before.
void WriteProduct(const Product& product) {
    static Files files;
    std::string modules;
    std::string sections;
    int number = 0;
    for (const auto& [module, text] : product) {
        if (module == kEntry) {
            continue;
        }
        const std::string file = FileOf(++number);
        files.Write(file, text);
        modules += "module" + std::to_string(number) + " = " + module + "\n";
        sections += "[" + module + "]\ncfg_filename = " + file + "\n";
    }
    const auto entry = product.find(kEntry);
    files.Write(kEntryFile, entry != product.end()
                                ? entry->second
                                : "[module]\nmodule_num = " + std::to_string(number) + "\n" +
                                      modules + sections);
    while (files.Has(FileOf(++number))) {
        files.Remove(FileOf(number));
    }
}

}  // namespace

bool PrepareProduct(Input input) {
    SilenceOutput();
    const Product product = ReadProduct(input);
    if (LeadsAstray(product)) {
        return false;
    }
    WriteProduct(product);
    return true;
}

InFuzzDirectory::InFuzzDirectory() : before_(open(".", O_RDONLY | O_DIRECTORY)) {
    Require(before_ != -1 && chdir(FuzzDirectory().c_str()) == 0, "a working directory");
}

InFuzzDirectory::~InFuzzDirectory() {
    Require(fchdir(before_) == 0, "a way back");
    close(before_);
}

std::int32_t LoadProduct() {
    errno = 0;
    BuildFrame(&g_image);
    const Status status = PDT_INIPARAM_LoadCfg();
    Require(g_confAccessCount == 0 || (g_confAccessCount == 1 && status != kOk),
            "a good run releases its configuration");
    if (g_confAccessCount != 0) {
        Require(ZV_CONFACCESS_Deinit("productini") == kOk, "a configuration can be released");
    }
    Require(g_configs.next == &g_configs, "nothing stays registered");
    return status;
}

}  // namespace paramgen::testing
