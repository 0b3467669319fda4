// The whole generator, from INI files to the image. An input is a product: a line "@NAME" begins
// the file of module NAME, "@entry" that of the entry file, which otherwise lists the modules there
// are, and "@-NAME" takes a module away. A product that says nothing of a module that it needs has
// an empty one.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <string>

#include "confaccess/confaccess.h"
#include "confaccess/registry.h"
#include "fuzz/fuzz.h"
#include "generator/image.h"
#include "generator/load.h"
#include "log/console_log.h"

namespace paramgen::testing {
namespace {

using Product = std::map<std::string, std::string>;  // module: text of its file

constexpr char kEntry[] = "entry";

Product NeededModules() {
    Product product;
    for (const char* module :
         {"devmng", "filemng", "media_common", "cam0_comm", "cam0_comm_record", "cam0_comm_photo",
          "workmode_common", "workmode_photo", "workmode_record", "valueset"}) {
        product[module];
    }
    return product;
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

void WriteProduct(const Product& product) {
    std::string modules;
    std::string sections;
    int number = 0;
    for (const auto& [module, text] : product) {
        if (module == kEntry) {
            continue;
        }
        const std::string file = "m" + std::to_string(++number) + ".ini";
        WriteBytes(file, text);
        modules += "module" + std::to_string(number) + " = " + module + "\n";
        sections += "[" + module + "]\ncfg_filename = " + file + "\n";
    }
    const auto entry = product.find(kEntry);
    WriteBytes(kEntryFile, entry != product.end()
                               ? entry->second
                               : "[module]\nmodule_num = " + std::to_string(number) + "\n" +
                                     modules + sections);
}

/// Whether the entry file leads to where reading never ends, or is not the input's.
bool LeadsAstray(const Product& product) {
    const auto entry = product.find(kEntry);
    return entry != product.end() && (entry->second.find("/dev") != std::string::npos ||
                                      entry->second.find("/proc") != std::string::npos);
}

/// Whether nothing but the sections was written to.
bool IsFrameWhole() {
    const auto isZero = [](std::byte byte) { return byte == std::byte{0}; };
    return g_image.header.magic == 0x70617261 && g_image.header.totalSize == 29928 &&
           std::all_of(std::begin(g_image.header.reserved), std::end(g_image.header.reserved),
                       isZero) &&
           std::all_of(std::begin(g_image.gap), std::end(g_image.gap), isZero) &&
           std::memcmp(&g_image.tail, "mrap\0\0\0\0", 8) == 0;
}

/// While this lives, the product's directory is the working directory.
class InFuzzDirectory {
public:
    InFuzzDirectory() {
        Require(before_ != -1 && chdir(FuzzDirectory().c_str()) == 0, "a working directory");
    }
    ~InFuzzDirectory() {
        Require(fchdir(before_) == 0, "a way back");
        close(before_);
    }
    InFuzzDirectory(const InFuzzDirectory&) = delete;
    InFuzzDirectory& operator=(const InFuzzDirectory&) = delete;

private:
    int before_ = open(".", O_RDONLY | O_DIRECTORY);
};

/// One run; what it leaves registered is released.
Status Load() {
    errno = 0;
    BuildFrame(&g_image);
    const Status status = PDT_INIPARAM_LoadCfg();
    Require(IsFrameWhole(), "no section writes outside");
    Require(g_confAccessCount == 0 || (g_confAccessCount == 1 && status != kOk),
            "a good run releases its configuration");
    if (g_confAccessCount != 0) {
        Require(ZV_CONFACCESS_Deinit("productini") == kOk, "a configuration can be released");
    }
    Require(g_configs.next == &g_configs, "nothing stays registered");
    return status;
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen;
    testing::SilenceOutput();
    const testing::Product product = testing::ReadProduct({data, size});
    if (testing::LeadsAstray(product)) {
        return 0;
    }
    const testing::InFuzzDirectory working;
    testing::WriteProduct(product);

    // Records are formatted for one product in eight: that takes most of the time.
    ConsoleLogSetup(size % 8 == 0 ? 1 : 0, 0, kConsoleDebug);
    const Status status = testing::Load();
    if (size % 64 == 0) {
        static ParamImage first;
        first = g_image;
        testing::Require(testing::Load() == status, "a run ends as the one before");
        testing::Require(std::memcmp(&first, &g_image, sizeof first) == 0,
                         "a run makes what the one before made");
    }
    return 0;
}
