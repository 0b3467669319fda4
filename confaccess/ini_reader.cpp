#include "confaccess/ini_reader.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "confaccess/ini_line.h"
#include "confaccess/number.h"
#include "safestr/safestr.h"

namespace paramgen {
namespace {

constexpr std::size_t kLineSize = 1024;              // a read takes at most 1023 characters
constexpr std::size_t kFieldMax = 1024;              // characters of a section or key name
constexpr std::size_t kKeySize = 2 * kFieldMax + 2;  // section, colon, key, terminator
static_assert(kLineSize <= kFieldMax, "both names of a line fit a key");

IniError g_lastError = IniError::kNone;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

DictionaryPtr NewDictionary() {
    void* memory = std::malloc(sizeof(Dictionary));
    DictionaryPtr dictionary(memory == nullptr ? nullptr : new (memory) Dictionary);
    if (dictionary != nullptr && !dictionary->Create()) {
        dictionary.reset();
    }
    return dictionary;
}

/// Puts the lines of one file into a dictionary.
class Loader {
public:
    explicit Loader(Dictionary* dictionary) : dictionary_(dictionary) {}

    /// Takes one line. Returns false when memory runs out.
    bool Take(char* text) {
        const IniLine line = ParseIniLine(text);
        switch (line.kind) {
            case IniLineKind::kNothing:
                break;
            case IniLineKind::kSection:
                return OpenSection(line.name);
            case IniLineKind::kValue:
                return StoreValue(line);
            case IniLineKind::kSyntaxError:
                g_lastError = IniError::kSyntax;
                hasErrors_ = true;
                break;
        }
        return true;
    }

    bool HasErrors() const { return hasErrors_; }

private:
    /// Names the current section: the beginning of every key up to the next section. Without a name
    /// it stays what it was.
    bool OpenSection(const char* name) {
        if (name != nullptr) {
            sectionLength_ = std::strlen(name);
            static_cast<void>(memcpy_s(key_, sizeof key_, name, sectionLength_));
        }
        key_[sectionLength_] = '\0';
        return dictionary_->Set(key_, nullptr);
    }

    bool StoreValue(const IniLine& line) {
        char* item = key_ + sectionLength_;
        *item++ = ':';
        static_cast<void>(memcpy_s(item, kFieldMax, line.name, std::strlen(line.name) + 1));
        return dictionary_->Set(key_, line.value);
    }

    Dictionary* dictionary_;
    bool hasErrors_ = false;
    std::size_t sectionLength_ = 0;
    char key_[kKeySize] = "";
};

/// Reads every line of `file` into the loader. Returns false when the file counts as unreadable.
bool ReadLines(std::FILE* file, Loader* loader) {
    char line[kLineSize];
    while (std::fgets(line, sizeof line, file) != nullptr) {
        const std::size_t length = std::strlen(line);
        if (length <= 1) {
            continue;
        }
        const char last = line[length - 1];
        if (last != '\n' && std::feof(file) == 0) {
            g_lastError = IniError::kSyntax;
            return false;
        }
        if (last == '\\') {
            continue;  // asks for a next line where there is none
        }
        if (!loader->Take(line)) {
            g_lastError = IniError::kLoadNotInserted;
            return false;
        }
    }
    // A directory opens as a file and fails at the first read: it counts as empty.
    return std::ferror(file) == 0 || errno == EISDIR;
}

}  // namespace

IniError LastIniError() {
    return g_lastError;
}

void DictionaryDeleter::operator()(Dictionary* dictionary) const {
    dictionary->~Dictionary();
    std::free(dictionary);
}

DictionaryPtr LoadIniFile(const char* path) {
    if (path == nullptr) {
        g_lastError = IniError::kNullArgument;
        return nullptr;
    }
    DictionaryPtr dictionary = NewDictionary();
    if (dictionary == nullptr) {
        g_lastError = IniError::kNoDictionary;
        return nullptr;
    }
    const FilePtr file(std::fopen(path, "r"));
    if (file == nullptr) {
        return nullptr;
    }
    Loader loader(dictionary.get());
    if (!ReadLines(file.get(), &loader) || loader.HasErrors()) {
        return nullptr;
    }
    return dictionary;
}

const char* FindText(const Dictionary& dictionary, const char* key, const char* defaultValue) {
    char folded[kFieldMax + 1];
    const std::size_t length = strnlen(key, kFieldMax);
    static_cast<void>(memcpy_s(folded, sizeof folded, key, length));
    folded[length] = '\0';
    FoldToLower(folded);
    return dictionary.Get(folded, defaultValue);
}

std::int32_t FindInteger(const Dictionary& dictionary, const char* key, std::int32_t defaultValue) {
    const char* text = FindText(dictionary, key, nullptr);
    return text == nullptr ? defaultValue : ParseInteger(text, 0);
}

}  // namespace paramgen
