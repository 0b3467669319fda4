#include "confaccess/ini_reader.h"

#include <algorithm>
#include <new>

#include "confaccess/ini_line.h"
#include "confaccess/line_reader.h"
#include "confaccess/line_rules.h"
#include "confaccess/number.h"
#include "confaccess/text_file.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

/// The most characters of a section name, and of a key name.
constexpr std::size_t kNameMax = 1024;
static_assert(LineReader::kPieceMax <= kNameMax, "what a line names fits");

IniError g_lastError = IniError::kNone;

/// Puts the lines of one file into a dictionary.
class Loader {
public:
    explicit Loader(Dictionary* dictionary)
        : dictionary_(dictionary), section_(dictionary->TextView().data(), 0) {
        key_[0] = ':';
    }

    /// Takes what a line has before its comment.
    void Take(std::string_view content) {
        const IniLine line = ParseIniLine(content);
        switch (line.kind) {
            case IniLineKind::kNothing:
                break;
            case IniLineKind::kSection:
                OpenSection(line.name);
                break;
            case IniLineKind::kValue:
                StoreValue(line);
                break;
            case IniLineKind::kSyntaxError:
                g_lastError = IniError::kSyntax;
                hasErrors_ = true;
                break;
        }
    }

    bool HasErrors() const { return hasErrors_; }

private:
    /// Names the current section: the beginning of every key up to the next section. Without a name
    /// it stays what it was.
    void OpenSection(std::string_view name) {
        if (name.data() != nullptr) {
            section_ = name;
            CopyText(key_, name.data(), name.size());
            key_[name.size()] = ':';
        }
        dictionary_->SetSection(section_);
    }

    void StoreValue(const IniLine& line) {
        const std::size_t begin = section_.size() + 1;
        CopyText(key_ + begin, line.name.data(), line.name.size());
        dictionary_->SetValue({key_, begin + line.name.size()}, section_, line.name, line.value);
    }

    Dictionary* dictionary_;
    bool hasErrors_ = false;
    std::string_view section_;
    char key_[2 * kNameMax + 1];  ///< it begins with the current section and a colon
};

/// Takes every line of the dictionary's text into it. Returns false when it is no INI file.
bool TakeLines(Dictionary* dictionary) {
    Loader loader(dictionary);
    LineReader lines(dictionary->TextView());
    TextLine line;
    while (lines.Next(&line)) {
        if (IsTooShort(line)) {
            continue;
        }
        if (IsTooLong(line)) {
            g_lastError = IniError::kSyntax;
            return false;
        }
        if (!line.hasNewline && AsksForNextLine(line)) {
            continue;  // there is none
        }
        loader.Take(line.content);
    }
    return !loader.HasErrors();
}

/// Makes a dictionary for the text of the file at `path`. Returns null when it cannot be read.
Dictionary* NewDictionary(const char* path, Arena* arena) {
    void* memory = arena->Take(sizeof(Dictionary));
    if (memory == nullptr) {
        g_lastError = IniError::kNoDictionary;
        return nullptr;
    }
    Dictionary* dictionary = new (memory) Dictionary;
    Text text;
    const ReadResult result = ReadTextFile(path, arena, &text);
    const bool isRead = result == ReadResult::kRead;
    if (result == ReadResult::kNoMemory || (isRead && !dictionary->Create(text, arena))) {
        g_lastError = IniError::kLoadNotInserted;
        return nullptr;
    }
    return isRead ? dictionary : nullptr;
}

}  // namespace

IniError LastIniError() {
    return g_lastError;
}

const Dictionary* LoadIniFile(const char* path, Arena* arena) {
    if (path == nullptr) {
        g_lastError = IniError::kNullArgument;
        return nullptr;
    }
    Dictionary* dictionary = NewDictionary(path, arena);
    return dictionary != nullptr && TakeLines(dictionary) ? dictionary : nullptr;
}

const char* FindText(const Dictionary& dictionary, std::string_view key, const char* defaultValue) {
    return dictionary.Get({key.data(), std::min(key.size(), kNameMax)}, defaultValue);
}

std::int32_t FindInteger(const Dictionary& dictionary, const char* key, std::int32_t defaultValue) {
    const char* text = FindText(dictionary, key, nullptr);
    return text == nullptr ? defaultValue : ParseInteger(text, 0);
}

}  // namespace paramgen
