#include "golden/random_product.h"

#include <algorithm>
#include <map>
#include <utility>

#include "golden/independent_image.h"
#include "golden/independent_names.h"
#include "golden/random_values.h"

namespace paramgen::testing {
namespace {

using independent::AskedKey;
using independent::Kind;
using independent::Product;

/// "section:key" and its value.
using Keys = std::map<std::string, std::string>;

const std::vector<std::string>& NeededModules() {
    static const std::vector<std::string> modules = {
        "devmng",           "filemng",         "media_common",    "cam0_comm",
        "cam0_comm_record", "cam0_comm_photo", "workmode_common", "workmode_photo",
        "workmode_record",  "valueset"};
    return modules;
}

/// The last two are never read.
const std::vector<std::string>& OptionalModules() {
    static const std::vector<std::string> modules = {
        "cam0_comm_playback", "cam0_mediamode0", "cam0_mediamode1", "cam0_mediamode2",
        "cam0_mediamode3",    "cam0_mediamode4", "cam0_ldccfg_0",   "cam0_ldccfg_1",
        "cam0_mediamode5",    "cam1_comm"};
    return modules;
}

/// Keys that look plausible, but are never read.
const std::vector<std::pair<std::string, std::string>>& Decoys() {
    static const std::vector<std::pair<std::string, std::string>> decoys = {
        {"devmng", "storagemng:medium_type"},
        {"devmng", "storagemng:dev_port_no"},
        {"filemng", "storagemng:mount_path"},
        {"media_common", "disp.0.window.0:enable"},
        {"media_common", "aenc.0:format"},
        {"media_common", "aenc.0.mp3:bit_rate"},
        {"cam0_mediamode0", "vb_depth.pool.0:blk_size"},
        {"workmode_record", "record.common:muxer_type"},
    };
    return decoys;
}

/// A value that makes the builder read as many other keys as possible.
std::string GenerousValue(const AskedKey& key) {
    if (key.kind == Kind::kCount) {
        return std::to_string(key.limit);
    }
    if (key.kind == Kind::kMode) {
        // Media mode N and calibration N get the same name, so that the search finds the module.
        const char last = key.module.back();
        const bool numbered = last >= '0' && last <= '9';
        return independent::MediaModes()[numbered ? static_cast<std::size_t>(last - '0') : 0].name;
    }
    return key.kind == Kind::kMatrix ? independent::CscMatrices()[0].name : "1";
}

/// The names that result when one of the numbers in a name is increased by one.
std::vector<std::string> NextNames(const std::string& name) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t first = name.find_first_of("0123456789", at);
        if (first == std::string::npos) {
            break;
        }
        at = std::min(name.find_first_not_of("0123456789", first), name.size());
        const std::size_t number = std::stoul(name.substr(first, at - first));
        names.push_back(name.substr(0, first) + std::to_string(number + 1) + name.substr(at));
    }
    return names;
}

using KeysByName = std::map<std::pair<std::string, std::string>, AskedKey>;

/// Adds the neighbours of keys: the same keys of the next display, pipe, module and so on. Mostly
/// there is no such thing, and they are never read.
void AddNeighbours(KeysByName& keys) {
    const KeysByName read = keys;
    for (const auto& [name, key] : read) {
        AskedKey next = key;
        next.at = AskedKey::kNowhere;
        for (const std::string& module : NextNames(key.module)) {
            next.module = module;
            keys.emplace(std::pair(module, key.key), next);
        }
        next.module = key.module;
        for (const std::string& item : NextNames(key.key)) {
            next.key = item;
            keys.emplace(std::pair(key.module, item), next);
        }
    }
}

/// A text with its letters in upper or lower case at random.
std::string AnyCase(Random& random, std::string text) {
    const bool upper = random.OneIn(2);
    for (char& c : text) {
        if (upper && c >= 'a' && c <= 'z' && random.OneIn(2)) {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return text;
}

/// Writes one file, in a random style.
class FileWriter {
public:
    explicit FileWriter(Random& random)
        : random_(random), lineEnd_(random.OneIn(4) ? "\r\n" : "\n"), plain_(random.OneIn(3)) {}

    void Add(const std::string& key, const std::string& value) {
        const std::size_t colon = key.find(':');
        Section(key.substr(0, colon));
        if (!plain_ && random_.OneIn(40)) {
            Line(key.substr(colon + 1) + " = overwritten");
        }
        lastKey_ = key.substr(colon + 1);
        const std::string equals =
            plain_ ? " = " : random_.OneOf({"=", " = ", "\t=\t", "  =", "= "});
        Line(AnyCase(random_, key.substr(colon + 1)) + equals + value);
    }

    /// The text of the file. It may end in a line without a line end, even in one that is dropped
    /// because it is too short or ends in a backslash.
    std::string Text() {
        switch (random_.Below(8)) {
            case 0:
                return text_.substr(0, text_.size() - lineEnd_.size());
            case 1:
                return text_ + "x";
            case 2:
                return text_ + lastKey_ + " = 9\\";
            default:
                return text_;
        }
    }

private:
    void Section(const std::string& section) {
        if (section != section_ || random_.OneIn(30)) {
            section_ = section;
            Line(random_.OneIn(5) ? "[ " + AnyCase(random_, section) + " ]" : "[" + section + "]");
        }
    }

    void Line(const std::string& line) {
        if (!plain_ && random_.OneIn(10)) {
            text_ += random_.OneOf({"", "# nothing = here", "  ; nothing", "   ", "[]"});
            text_ += lineEnd_;
        }
        const bool comment = !plain_ && random_.OneIn(10);
        text_ += (!plain_ && random_.OneIn(6) ? "   " : "") + line +
                 (comment ? " ; what = it is" : "") + lineEnd_;
    }

    Random& random_;
    std::string lineEnd_;
    bool plain_;
    std::string section_;
    std::string lastKey_ = "nothing";
    std::string text_;
};

/// The text of a file with these keys, each in its section, in random order.
std::string FileText(Random& random, const Keys& keys) {
    std::vector<std::pair<std::string, std::string>> lines(keys.begin(), keys.end());
    if (random.OneIn(3)) {
        for (std::size_t i = lines.size(); i > 1; --i) {
            std::swap(lines[i - 1], lines[random.Below(i)]);
        }
    }
    FileWriter file(random);
    for (const auto& [key, value] : lines) {
        file.Add(key, value);
    }
    return file.Text();
}

std::map<std::string, Keys> RandomModules(Random& random, const std::vector<AskedKey>& keys) {
    const std::vector<std::string> modes = {
        independent::MediaModes()[random.OneIn(2) ? 0 : random.Below(54)].name,
        independent::MediaModes()[random.Below(54)].name};
    std::map<std::string, Keys> modules;
    std::map<std::string, std::size_t> percent;
    for (const std::string& module : NeededModules()) {
        modules[module];
    }
    for (const std::string& module : OptionalModules()) {
        if (!random.OneIn(3)) {
            modules[module];
        }
    }
    for (const auto& [module, none] : modules) {
        percent[module] = std::vector<std::size_t>{0, 40, 80, 97, 100}[random.Below(5)];
    }
    for (const AskedKey& key : keys) {
        // Of the neighbours of known keys, which are never stored, some are enough.
        const bool wanted =
            key.at != AskedKey::kNowhere || key.kind == Kind::kMode || random.OneIn(4);
        if (modules.count(key.module) != 0 && wanted && random.Below(100) < percent[key.module]) {
            modules[key.module][key.key] = GoodValue(random, key, modes);
        }
    }
    for (const auto& [module, key] : Decoys()) {
        if (modules.count(module) != 0 && random.OneIn(3)) {
            modules[module][key] = "1";
        }
    }
    return modules;
}

/// Replaces one of the values that are stored in the image by a bad one.
void Spoil(Random& random, const std::vector<AskedKey>& keys,
           std::map<std::string, Keys>& modules) {
    for (bool spoilt = false; !spoilt;) {
        const AskedKey& key = keys[random.Below(keys.size())];
        const std::string bad = BadValue(key);
        spoilt = !bad.empty() && key.at != AskedKey::kNowhere && modules.count(key.module) != 0;
        if (spoilt) {
            modules[key.module][key.key] = bad;
        }
    }
}

std::string CountText(Random& random, std::size_t count) {
    const std::string digits = "0123456789abcdef";
    if (random.OneIn(3)) {
        return std::string("0x") + digits[count / 16] + digits[count % 16];
    }
    if (random.OneIn(3)) {
        return std::string("0") + digits[count / 8] + digits[count % 8];
    }
    return std::to_string(count);
}

/// Adds a module to the entry file, with a random directory. Returns the path of its file.
std::string AddToEntry(Random& random, const TempDir& directory, const std::string& module,
                       Keys& entry) {
    const std::vector<std::string> folders = {"", "./a/", "b/c", "b/c/", "nothing"};
    const std::size_t choice = random.Below(6);
    entry[module + ":cfg_filename"] = random.OneIn(3) ? "\"" + module + ".ini\"" : module + ".ini";
    if (choice == 5) {
        entry[module + ":path"] = (directory.path() / "absolute").string();
        return "absolute/" + module + ".ini";
    }
    if (choice != 0) {
        entry[module + ":path"] = folders[choice];
    }
    const bool here = folders[choice].find('/') == std::string::npos;
    return here ? module + ".ini" : folders[choice] + "/" + module + ".ini";
}

}  // namespace

std::vector<AskedKey> AllKeys() {
    Product product;
    for (const auto* modules : {&NeededModules(), &OptionalModules()}) {
        for (const std::string& module : *modules) {
            product[module];
        }
    }
    KeysByName keys;
    for (std::size_t before = 1; keys.size() != before;) {
        before = keys.size();
        for (const AskedKey& key : independent::BuildImage(product).asked) {
            keys.emplace(std::pair(key.module, key.key), key);
            product[key.module][independent::Lower(key.key)] = GenerousValue(key);
        }
    }
    AddNeighbours(keys);
    std::vector<AskedKey> all;
    for (const auto& [name, key] : keys) {
        all.push_back(key);
    }
    return all;
}

void WriteRandomProduct(const TempDir& directory, const std::vector<AskedKey>& keys,
                        std::uint64_t number, Health health) {
    Random random(number);
    std::map<std::string, Keys> modules = RandomModules(random, keys);
    if (health == Health::kOneBadValue) {
        Spoil(random, keys, modules);
    }
    Keys entry = {{"module:module_num", CountText(random, modules.size())}};
    std::size_t position = 0;
    for (const auto& [module, values] : modules) {
        entry["module:module" + std::to_string(++position)] = module;
        const std::string file = AddToEntry(random, directory, module, entry);
        const std::vector<std::string>& optional = OptionalModules();
        const bool missing =
            random.OneIn(12) && std::count(optional.begin(), optional.end(), module);
        if (!missing) {
            directory.Write(file, FileText(random, values));
        }
    }
    directory.Write("config_cfgaccess_entry.ini", FileText(random, entry));
}

}  // namespace paramgen::testing
