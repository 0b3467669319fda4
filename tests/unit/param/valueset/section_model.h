/// A model of the value set section, which computes its expected bytes.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "param/valueset/valueset.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"

namespace paramgen::testing {

/// Keys of the module and their texts.
using Keys = std::map<std::string, std::string>;

/// Loads keys into a section that ends where its memory does.
inline LoadResult LoadKeys(const Keys& keys) {
    ProductTree tree;
    tree.AddModule("valueset");
    for (const auto& [key, value] : keys) {
        tree.Set("valueset", key, value);
    }
    const RegisteredProduct product(tree);
    const auto section = std::make_unique<ValueSetCfg>();
    LoadResult result = {};
    result.output =
        CaptureStdout([&] { result.status = PDT_INIPARAM_LoadValueSetCfg(section.get()); });
    result.record.assign(reinterpret_cast<const char*>(section.get()), 5576);
    return result;
}

enum Kind { kNumbers, kModes, kDormant };

/// A set: its slot, its item and its kind.
struct Slot {
    std::size_t slot;
    std::string item;
    Kind kind;
};

/// The sets in load order, without those of burst types.
inline const Slot kSlots[] = {
    {0, "cam.0.enc.payloadtype", kNumbers},
    {3, "cam.0.mediamode.record", kModes},
    {4, "cam.0.mediamode.photo", kModes},
    {10, "cam.0.wdr.status", kNumbers},
    {11, "cam.0.video.mode", kNumbers},
    {12, "cam.0.ldc.status", kNumbers},
    {13, "cam.0.flip.status", kNumbers},
    {14, "cam.0.mirror.status", kNumbers},
    {15, "cam.0.antiflicker.mode", kNumbers},
    {1, "screen.dormant", kDormant},
    {2, "screen.brightness", kNumbers},
    {5, "volume", kNumbers},
    {6, "drive_sensitivity", kNumbers},
    {7, "parking_sensitivity", kNumbers},
    {8, "usb.mode", kNumbers},
    {9, "system.language", kNumbers},
    {16, "splite_time", kNumbers},
    {17, "record.lapse.interval", kNumbers},
    {18, "record.type", kNumbers},
    {20, "photo.type", kNumbers},
    {21, "cam.0.singlephoto.outputformat", kNumbers},
    {22, "cam.0.lapsephoto.interval", kNumbers},
    {23, "cam.0.burst.mediamode", kModes},
};

inline std::vector<Slot> AllSlots() {
    std::vector<Slot> slots(std::begin(kSlots), std::end(kSlots));
    for (std::size_t t = 0; t < 10; ++t) {
        slots.push_back({24 + t, "cam.0.burst.type" + std::to_string(t), kNumbers});
    }
    return slots;
}

/// The numbers of the media modes that these tests use.
inline const std::map<std::string, int> kModeNumbers = {
    {"QX_PARAM_MEDIAMODE_480P_25", 0},
    {"QX_PARAM_MEDIAMODE_1080P_60", 11},
    {"QX_PARAM_MEDIAMODE_PHOTO_2160P", 48},
    {"QX_PARAM_MEDIAMODE_PLAYBACK", 53},
};

/// Computes the section that a module's keys must give.
class Model {
public:
    explicit Model(const Keys& keys) : keys_(keys) {
        for (const Slot& slot : kSlots) {
            Load(slot);
        }
        const std::uint32_t count = Get(3772);
        for (std::size_t t = 0; t < count; ++t) {
            Load({24 + t, "cam.0.burst.type" + std::to_string(t), kNumbers});
        }
    }

    const std::string& bytes() const { return bytes_; }
    const std::vector<std::string>& echo() const { return echo_; }

private:
    std::uint32_t Get(std::size_t offset) const {
        std::uint32_t value = 0;
        for (std::size_t i = 4; i-- > 0;) {
            value = value * 256 + static_cast<unsigned char>(bytes_.at(offset + i));
        }
        return value;
    }

    void Put(std::size_t offset, std::int64_t value) {
        ASSERT_LE(offset + 4, bytes_.size());
        bytes_.replace(offset, 4, LittleEndian(value, 4));
    }

    std::string Text(std::size_t offset) const {
        return bytes_.substr(offset, bytes_.find('\0', offset) - offset);
    }

    const std::string* Find(const std::string& key) const {
        const auto found = keys_.find(key);
        return found == keys_.end() ? nullptr : &found->second;
    }

    void LoadDescription(const std::string& key, std::size_t offset) {
        if (const std::string* text = Find(key); text != nullptr) {
            bytes_.replace(offset, text->size() + 1, text->c_str(), text->size() + 1);
        }
        echo_.push_back("PDT_INIPARAM_LoadStringValue: " + key + " [" + Text(offset) + "]\n");
    }

    void LoadValue(const std::string& key, Kind kind, std::size_t offset) {
        const std::string* text = Find(key);
        if (kind != kModes) {
            Put(offset, text == nullptr ? 0 : std::stol(*text));
        } else if (text != nullptr) {
            const std::string number = std::to_string(kModeNumbers.at(*text));
            echo_.push_back("PARAM_INIPARAM_GetMediaModeEnum: MediaMode[" + *text + "] Enum[" +
                            number + "]\n");
            Put(offset, std::stol(number));
        }
    }

    void Load(const Slot& slot) {
        const std::string loader = slot.kind == kModes ? "PDT_INIPARAM_LoadMediaModeItemValues: "
                                                       : "PDT_INIPARAM_LoadCommItemValues: ";
        const std::size_t start = 164 * slot.slot;
        const std::string* num = Find(slot.item + ":num");
        Put(start, num == nullptr ? 0 : std::stol(*num));
        const std::uint32_t count = Get(start);
        echo_.push_back(loader + (slot.kind == kModes ? "MediaModeItem[" : "CommItem[") +
                        slot.item + "] Support ValueCnt[" + std::to_string(count) + "]\n");
        for (std::size_t k = 0; k < count; ++k) {
            const std::string index = std::to_string(k);
            const std::size_t entry = start + 4 + 16 * k;
            LoadDescription(slot.item + ":description" + index, entry);
            LoadValue(slot.item + ":value" + index, slot.kind, entry + 12);
            const std::uint32_t value = Get(entry + 12);
            const std::string printed = slot.kind == kModes
                                            ? std::to_string(static_cast<std::int32_t>(value))
                                            : std::to_string(value);
            echo_.push_back(loader + "      [" + index + "] Description[" + Text(entry) +
                            "] Value[" + printed + "]\n");
        }
        echo_.push_back(loader + "\n\n");
        for (std::size_t k = 0; slot.kind == kDormant && k < count; ++k) {
            Transform(start + 4 + 16 * k);
        }
    }

    void Transform(std::size_t entry) {
        const std::string loader = "PDT_INIPARAM_LoadDormantValueSetCfg: desc[";
        echo_.push_back(loader + Text(entry) + "] time[" + std::to_string(Get(entry + 12)) +
                        "s] before transform\n");
        Put(entry + 12, static_cast<std::int64_t>(Get(entry + 12)) * 1000);
        echo_.push_back(loader + Text(entry) + "] time[" + std::to_string(Get(entry + 12)) +
                        "ms] after transform\n");
    }

    Keys keys_;
    std::string bytes_ = std::string(5576, '\0');
    std::vector<std::string> echo_;
};

/// Sets the count of a set, and different descriptions and values for that many choices.
inline void Fill(Keys* keys, const Slot& slot, int count) {
    (*keys)[slot.item + ":num"] = std::to_string(count);
    for (int k = 0; k < count; ++k) {
        const std::string index = std::to_string(k);
        (*keys)[slot.item + ":description" + index] =
            std::string(static_cast<std::size_t>(k % 9), static_cast<char>('a' + slot.slot % 26)) +
            "x" + std::to_string(k % 10);
        (*keys)[slot.item + ":value" + index] =
            slot.kind == kModes ? "QX_PARAM_MEDIAMODE_1080P_60"
                                : std::to_string(static_cast<int>(slot.slot) * 1000000 + k + 1);
    }
}

/// Every set with three choices, and three lists of burst types.
inline Keys ThreeEach() {
    Keys keys;
    for (const Slot& slot : AllSlots()) {
        if (slot.slot < 27) {
            Fill(&keys, slot, 3);
        }
    }
    return keys;
}

/// Loads the keys and compares with the model.
inline void ExpectAsModelled(const Keys& keys) {
    const Model model(keys);
    const LoadResult result = LoadKeys(keys);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.record == model.bytes());
    EXPECT_TRUE(EchoOf(result.output) == model.echo());
}

}  // namespace paramgen::testing
