#include "properties/hostile.h"

#include <iterator>

#include "golden/random_product.h"

namespace paramgen::testing {
namespace {

constexpr char kEntry[] = "config_cfgaccess_entry.ini";

std::string RandomBytes(Random& random, std::size_t most) {
    std::string bytes;
    for (std::size_t left = random.Below(most + 1); left > 0; --left) {
        bytes += random.OneIn(4) ? random.OneOf({"\n", "=", "[", "]", "\"", "'", ";", "#", "\\"})
                                 : std::string(1, static_cast<char>(random.Below(256)));
    }
    return bytes;
}

/// A line whose length is near one of the limits of lines, texts and keys.
std::string LimitLine(Random& random) {
    static const std::size_t limits[] = {11,  63,  64,   127,  128,  255,
                                         256, 511, 1021, 1022, 1023, 1024};
    const std::size_t length = limits[random.Below(std::size(limits))] + random.Below(3) - 1;
    const std::string start = random.OneOf({"", "# ", "; ", "key = ", "key = \"", "[", "   "});
    const std::string end = random.OneOf({"", " = 1", "\"", "]", "\\"});
    std::string line = start + end;
    if (line.size() < length) {
        line.insert(start.size(), length - line.size(), random.OneIn(2) ? 'k' : ' ');
    }
    return "\n" + line + (random.OneIn(4) ? "" : "\n");
}

std::size_t AnyPlace(Random& random, const std::string& text) {
    return random.Below(text.size() + 1);
}

/// Damages the bytes of a file at random.
std::string Harmed(Random& random, std::string text) {
    switch (random.Below(6)) {
        case 0:
            return text.substr(0, AnyPlace(random, text));
        case 1:
            return text.insert(AnyPlace(random, text), RandomBytes(random, 20));
        case 2:
            return text.insert(AnyPlace(random, text), 1, '\0');
        case 3:
            return text.insert(AnyPlace(random, text), LimitLine(random));
        case 4:
            return text + LimitLine(random);
        default:
            return RandomBytes(random, 3000);
    }
}

/// Lines at the end of the entry file that contradict it, or list too much.
std::string EntryLines(Random& random) {
    const std::string name =
        random.OneOf({"devmng", "cam0_comm", "cam0_mediamode0", "valueset", "nobody"});
    const std::string longName(std::size_t{113} + random.Below(18), 'm');
    const std::string longPath(std::size_t{236} + random.Below(24), 'p');
    switch (random.Below(6)) {
        case 0:
            return std::string("[module]\nmodule_num = ") +
                   random.OneOf({"0", "-1", "1", "5", "0x14", "024", "99", "2147483647",
                                 "2147483648", "99999999999", "-99999999999", "abc", "", "1e3"});
        case 1:
            return "[module]\nmodule" + std::to_string(1 + random.Below(12)) + " = " + name;
        case 2:
            return "[" + name + "]\npath = " +
                   random.OneOf({"./", "..", "../", "/", "//", "./.", "./loop/loop/loop/", "b/../",
                                 "/dev", "/proc/self", "./a//", "./\xFF/"});
        case 3:
            return "[" + name + "]\npath = ./" + longPath;
        case 4:
            return "[module]\nmodule2 = " + longName + "\n[" + longName +
                   "]\ncfg_filename = devmng.ini";
        default:
            return "[" + name + "]\ncfg_filename = " +
                   random.OneOf({"", "\"\"", ".", "..", "loop", "null", "../x", "devmng.ini/",
                                 "filemng.ini", kEntry});
    }
}

/// Counts, too large ones among them, for the end of a module's file.
std::string CountLines(Random& random) {
    const std::string node =
        random.OneOf({"volume", "cam.0.burst.mediamode", "screen.dormant", "normal.0", "osd",
                      "osd.0", "venc.0", "vb", "splite_time"});
    const std::string key = random.OneOf({"num", "thmcnt", "filecnt", "osdcnt", "dispnum",
                                          "bindcnt", "max_poolcnt", "venccnt", "aenccnt"});
    return "[" + node + "]\n" + key + " = " +
           random.OneOf({"-1", "1", "4", "5", "8", "9", "10", "11", "16", "17", "349", "1106",
                         "65536", "2147483647", "-2147483648", "4294967295"});
}

/// Replaces a file by something else.
void Replace(Random& random, const std::filesystem::path& file) {
    std::filesystem::remove(file);
    switch (random.Below(6)) {
        case 0:
            std::filesystem::create_directory(file);
            break;
        case 1:
            std::filesystem::create_symlink(file.filename(), file);  // to itself
            break;
        case 2:
            std::filesystem::create_symlink(file.parent_path() / "nowhere", file);
            break;
        case 3:
            std::filesystem::create_symlink("/dev/null", file);
            break;
        case 4:
            std::filesystem::create_symlink(file.parent_path() / kEntry, file);
            break;
        default:
            break;  // nothing at all
    }
}

std::string AnyFile(Random& random, const Tree& tree) {
    if (random.OneIn(3)) {
        return kEntry;
    }
    return std::next(tree.begin(), static_cast<std::ptrdiff_t>(random.Below(tree.size())))->first;
}

/// Damages the product once. Returns what was done, in a word or two.
std::string Harm(Random& random, const TempDir& directory, const Tree& tree) {
    const std::string file = AnyFile(random, tree);
    const std::filesystem::path path = directory.path() / file;
    if (!std::filesystem::is_regular_file(std::filesystem::symlink_status(path))) {
        return "";
    }
    switch (random.Below(6)) {
        case 0:
            Replace(random, path);
            return file + " replaced";
        case 1:
            directory.Write(kEntry, tree.at(kEntry) + "\n" + EntryLines(random) + "\n");
            return "entry lines";
        case 2:
            directory.Write(file, ReadFile(path) + "\n" + CountLines(random) + "\n");
            return file + " counts";
        case 3:
            std::filesystem::permissions(path, std::filesystem::perms::none);
            return file + " forbidden";
        default:
            directory.Write(file, Harmed(random, ReadFile(path)));
            return file + " harmed";
    }
}

}  // namespace

std::string WriteHostileProduct(const TempDir& directory,
                                const std::vector<independent::AskedKey>& keys,
                                std::uint64_t number) {
    Random random(number);
    std::vector<independent::AskedKey> few;
    for (std::size_t left = random.Below(40) + 1; left > 0; --left) {
        few.push_back(keys[random.Below(keys.size())]);
    }
    WriteRandomProduct(directory, few, number, Health::kGood);
    std::filesystem::create_directory_symlink(".", directory.path() / "loop");
    std::filesystem::create_symlink("/dev/null", directory.path() / "null");
    const Tree tree = ReadTree(directory.path());
    std::string done;
    for (std::size_t harms = random.Below(4); harms > 0; --harms) {
        done += Harm(random, directory, tree) + "; ";
    }
    return done;
}

}  // namespace paramgen::testing
