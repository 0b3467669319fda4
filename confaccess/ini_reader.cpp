#include "confaccess/ini_reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "confaccess/ini_line.h"
#include "confaccess/line_reader.h"
#include "confaccess/number.h"

namespace paramgen {
namespace {

static_assert(LineReader::kPieceMax <= FoldedKey::kNameMax, "both names of a line fit a key");

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
    explicit Loader(Dictionary* dictionary) : dictionary_(dictionary) { key_.Append(":"); }

    /// Takes one line. Returns false when memory runs out.
    bool Take(std::string_view text) {
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
    bool OpenSection(std::string_view name) {
        key_.CutTo(name.data() == nullptr ? sectionLength_ : 0);
        key_.Append(name);
        sectionLength_ = key_.Text().size();
        const bool stored = dictionary_->Set(key_, {});
        key_.Append(":");
        return stored;
    }

    bool StoreValue(const IniLine& line) {
        key_.Append(line.name);
        const bool stored = dictionary_->Set(key_, line.value);
        key_.CutTo(sectionLength_ + 1);
        return stored;
    }

    Dictionary* dictionary_;
    bool hasErrors_ = false;
    FoldedKey key_;  ///< between lines: the current section and a colon
    std::size_t sectionLength_ = 0;
};

/// Reads every line of `file` into the loader. Returns false when the file counts as unreadable.
bool ReadLines(std::FILE* file, Loader* loader) {
    LineReader lines(file);
    TextLine line;
    while (lines.Next(&line)) {
        if (line.text.size() + (line.hasNewline ? 1 : 0) <= 1) {
            continue;
        }
        if (!line.hasNewline && !line.isLast) {
            g_lastError = IniError::kSyntax;
            return false;
        }
        if (!line.hasNewline && line.text.back() == '\\') {
            continue;  // asks for a next line where there is none
        }
        if (!loader->Take(line.text)) {
            g_lastError = IniError::kLoadNotInserted;
            return false;
        }
    }
    // A directory opens as a file and fails at the first read: it counts as empty.
    return std::ferror(file) == 0 || errno == EISDIR;
}

/// What there is to read at a path.
enum class Content {
    kSome,  ///< or what it is shows when it is opened
    kNone,
    kEndless,
};

/// Looks before the file is opened for reading, since that alone may wait. A pipe or a terminal has
/// no size and waits for somebody who writes; devices that give zeros for ever say they have none.
Content LookAt(const char* path) {
    const int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file == -1) {
        return Content::kSome;
    }
    const off_t size = lseek(file, 0, SEEK_END);
    const bool isEndless =
        size == -1 && errno == ESPIPE;  // not so a directory, which may fail, too
    close(file);
    return isEndless ? Content::kEndless : size == 0 ? Content::kNone : Content::kSome;
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
    const Content content = LookAt(path);
    if (content == Content::kEndless) {
        return nullptr;
    }
    const FilePtr file(std::fopen(path, "r"));
    if (file == nullptr) {
        return nullptr;
    }
    Loader loader(dictionary.get());
    const bool isRead = content == Content::kNone || ReadLines(file.get(), &loader);
    if (!isRead || loader.HasErrors()) {
        return nullptr;
    }
    return dictionary;
}

const char* FindText(const Dictionary& dictionary, std::string_view key, const char* defaultValue) {
    return dictionary.Get(FoldedKey({key.data(), std::min(key.size(), FoldedKey::kNameMax)}),
                          defaultValue);
}

std::int32_t FindInteger(const Dictionary& dictionary, const char* key, std::int32_t defaultValue) {
    const char* text = FindText(dictionary, key, nullptr);
    return text == nullptr ? defaultValue : ParseInteger(text, 0);
}

}  // namespace paramgen
