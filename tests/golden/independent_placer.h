/// Puts the values of one module at their places in an image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "golden/independent_ini.h"

namespace paramgen::testing::independent {

/// What a value is, as far as those need to know who make one up.
enum class Kind {
    kBool,
    kNumber,
    kCount,   ///< a number of entries
    kShort,   ///< a number that must fit 16 bits
    kMask,    ///< a number that must not be negative
    kFloat,   ///< a number with a fraction
    kText,    ///< a text of limited length
    kMode,    ///< the name of a media mode
    kMatrix,  ///< the name of a colour space conversion
};

/// What happens to a number of entries above the room that there is for them.
enum class Above { kIsCut, kIsWrong };

/// A key that was asked for.
struct AskedKey {
    static constexpr std::size_t kNowhere = ~std::size_t{0};

    std::string module;
    std::string key;
    Kind kind = Kind::kNumber;
    std::size_t at = kNowhere;  ///< its place in the image
    std::size_t width = 0;      ///< bytes there
    std::uint32_t limit = 0;    ///< longest text, or room for entries
    Above above = Above::kIsCut;
};

/// An image in the making.
struct Building {
    const Product& product;
    std::string image;
    std::size_t end = 0;      ///< where the section ends that is being filled
    bool failed = false;      ///< something was met that must stop the program
    bool rangeError = false;  ///< a number before was out of the range of its type
    std::vector<AskedKey> asked;
};

class Placer {
public:
    Placer(Building& building, std::string module);

    /// Whether the product has the module, or the module the key.
    bool HasModule() const;
    bool HasKey(const std::string& key) const { return Find(key).has_value(); }

    /// Numbers. Whatever their sign, they are read with one.
    void Bool(std::size_t at, const std::string& key);
    std::uint32_t U32(std::size_t at, const std::string& key, std::int32_t otherwise = 0);
    std::uint32_t S32(std::size_t at, const std::string& key, std::int32_t otherwise = 0);
    void U8(std::size_t at, const std::string& key);
    void S16(std::size_t at, const std::string& key);
    void S64(std::size_t at, const std::string& key);
    void F32(std::size_t at, const std::string& key);
    /// A text of decimal digits, not negative.
    void Mask(std::size_t at, const std::string& key);
    /// A number of entries that fill at most `room` places.
    std::uint32_t Count(std::size_t at, const std::string& key, std::uint32_t room, Above above);

    /// A text that ends with a zero within `size` bytes.
    void Text(std::size_t at, std::size_t size, const std::string& key);
    /// The same, where two double quotes stand for no text.
    void DirName(std::size_t at, std::size_t size, const std::string& key);

    /// Names that stand for numbers. An absent name places nothing.
    std::int32_t Mode(std::size_t at, const std::string& key);
    void Matrix(std::size_t at, const std::string& key);
    /// The number of a media mode that is placed nowhere.
    std::optional<std::int32_t> FindMode(const std::string& key);

    /// A word that no key says, and a copy of one that was placed before.
    void Word(std::size_t at, std::uint32_t value) { Store(at, value, 4); }
    void Copy(std::size_t to, std::size_t from) { Word(to, At(from)); }
    /// The word at a place.
    std::uint32_t At(std::size_t at) const;

    /// The same building, another module.
    Placer Of(const std::string& module) const { return Placer(*building_, module); }

    void Fail() { building_->failed = true; }
    bool Failed() const { return building_->failed; }

private:
    std::optional<std::string> Find(const std::string& key) const;
    std::optional<std::string> Ask(const AskedKey& asked);
    std::int32_t Number(const AskedKey& asked, std::int32_t otherwise);
    std::uint32_t Number32(Kind kind, std::size_t at, const std::string& key,
                           std::int32_t otherwise);
    AskedKey Key(Kind kind, std::size_t at, std::size_t width, const std::string& key) const;
    void Store(std::size_t at, std::uint64_t value, std::size_t bytes);
    void StoreText(std::size_t at, std::size_t size, const std::string& text);

    Building* building_;
    std::string module_;
};

/// A number as a key spells it.
inline std::string N(std::size_t number) {
    return std::to_string(number);
}

}  // namespace paramgen::testing::independent
