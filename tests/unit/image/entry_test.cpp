#include "image/entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compile/session.h"
#include "image/dump.h"

namespace paramgen::image {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const Image& Example() {
    static const Image image =
        compile::Compile(std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam").image;
    return image;
}

void Put(Image* image, std::uint32_t offset, std::uint32_t number) {
    std::memcpy(&(*image)[offset], &number, sizeof number);
}

Entry EntryAt(const Image& image, std::uint32_t offset) {
    return EntryOf(image, *layout::ValueAt(offset));
}

/// The bytes that hexadecimal digits stand for.
std::string FromHexadecimal(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

std::string Bytes(const Image& image) {
    return Characters(image);
}

TEST(Entries, CoverTheImageExactlyOnce) {
    std::string bytes;
    for (const Entry& entry : Entries(Example())) {
        EXPECT_EQ(entry.value->offset, bytes.size());
        bytes += FromHexadecimal(entry.raw);
    }
    EXPECT_TRUE(bytes == Bytes(Example()));
}

TEST(Entries, OfTheExampleHaveNoFlags) {
    for (const Entry& entry : Entries(Example())) {
        EXPECT_THAT(entry.flags, IsEmpty()) << entry.value->Member();
    }
}

TEST(Entries, WhatIsOddIsFlagged) {
    Image image = Example();
    Put(&image, 0, 1);
    EXPECT_THAT(EntryAt(image, 0).flags, ElementsAre(Flag::kWrongMagic));
    Put(&image, 4, 1);
    EXPECT_THAT(EntryAt(image, 4).flags, ElementsAre(Flag::kConstantDiffers));
    Put(&image, 8, 1);
    EXPECT_THAT(EntryAt(image, 8).flags, ElementsAre(Flag::kReservedNotZero));
    Put(&image, 9616, 12345);  // the input sample rate of sound, a copy
    EXPECT_THAT(EntryAt(image, 9616).flags, ElementsAre(Flag::kCopyDiffers));
    Put(&image, 23924 + 404, 2);
    EXPECT_THAT(EntryAt(image, 23924 + 404).flags, ElementsAre(Flag::kNotABoolean));
    Put(&image, 13160, 54);
    EXPECT_THAT(EntryAt(image, 13160).flags, ElementsAre(Flag::kUnknownName));
    std::fill_n(image.begin() + 23988, 64, std::byte{'x'});
    EXPECT_THAT(EntryAt(image, 23988).flags, ElementsAre(Flag::kTextUnended));
}

TEST(Entries, AnyBytesCanBeTold) {
    for (const std::byte byte : {std::byte{0}, std::byte{0xFF}, std::byte{0x80}}) {
        Image image = {};
        image.fill(byte);
        EXPECT_EQ(Entries(image).size(), layout::Values().size());
        EXPECT_FALSE(TextDump(Entries(image)).empty());
        EXPECT_FALSE(output::Dumped(JsonDump(image, Entries(image))).empty());
    }
}

TEST(Dump, JsonReadsBackToTheImage) {
    const output::Json json =
        output::Json::parse(output::Dumped(JsonDump(Example(), Entries(Example()))));
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["size"], 29928);
    std::string bytes;
    for (const output::Json& entry : json["entries"]) {
        EXPECT_EQ(entry["offset"], bytes.size());
        bytes += FromHexadecimal(entry["raw"]);
    }
    EXPECT_TRUE(bytes == Bytes(Example()));
}

/// Removes the first line from `text` and returns its fields.
std::vector<std::string> TakeCsvLine(std::string* text) {
    std::vector<std::string> fields(1);
    bool isQuoted = false;
    std::size_t at = 0;
    for (; at < text->size(); ++at) {
        const char c = (*text)[at];
        if (c == '"' && isQuoted && (*text)[at + 1] == '"') {
            fields.back() += (*text)[++at];
        } else if (c == '"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && c == ',') {
            fields.emplace_back();
        } else if (!isQuoted && c == '\r') {
            break;
        } else {
            fields.back() += c;
        }
    }
    *text = text->substr(at + 2);
    return fields;
}

TEST(Dump, CsvReadsBackToTheImage) {
    Image image = Example();
    const std::string model = "a,\"b\"\r\nc";
    std::memcpy(&image[23988], model.c_str(), model.size() + 1);
    const std::uint32_t version =
        layout::FindKey("devmng", "devinfo", "software_version")->values[0]->offset;
    std::memcpy(&image[version], "v\xE9", 3);
    std::string text = CsvDump(Entries(image));
    EXPECT_EQ(TakeCsvLine(&text)[8], "raw");
    std::string bytes;
    while (!text.empty()) {
        const std::vector<std::string> fields = TakeCsvLine(&text);
        ASSERT_EQ(fields.size(), 12U);
        EXPECT_EQ(fields[0], std::to_string(bytes.size()));
        if (fields[0] == "23988") {
            EXPECT_EQ(fields[9], model);
        }
        if (fields[0] == std::to_string(version)) {
            EXPECT_EQ(fields[9], "v\xEF\xBF\xBD");  // U+FFFD
        }
        bytes += FromHexadecimal(fields[8]);
    }
    EXPECT_TRUE(bytes == Bytes(image));
}

TEST(Dump, TextShowsWhatThereIsToKnow) {
    const std::string text = TextDump({EntryAt(Example(), 13160)});
    EXPECT_EQ(text,
              "OFFSET  SIZE  BYTES     TYPE  VALUE             KEY"
              "                               MEMBER\n"
              "13160   4     1e000000  name  30 QX_PARAM_MEDIAMODE_2160P_30  "
              "cam0_mediamode0/common:mediamode  cam[0].mediaModes[0].mediaMode\n");
}

TEST(Dump, TextHasColumnsThatFitATerminal) {
    const Image image = {};
    EXPECT_EQ(TextDump({EntryAt(image, 8), EntryAt(image, 24316), EntryAt(image, 23988)}),
              "OFFSET  SIZE  BYTES        TYPE   VALUE  KEY                         MEMBER\n"
              "8       8     00000000+4   bytes         -                           "
              "header.reserved\n"
              "24316   4     00000000     i32    0      devmng/gsensor:sensitivity  "
              "devMng.gsensor.sensitivity\n"
              "23988   64    00000000+60  text   \"\"     devmng/devinfo:model        "
              "devMng.devInfo.model\n");
}

TEST(Dump, TextHidesNothingThatATerminalWouldDo) {
    Image image = Example();
    std::memcpy(&image[23988], "\x1b[2J", 5);
    EXPECT_THAT(TextDump({EntryAt(image, 23988)}), HasSubstr("\"<U+001B>[2J\""));
}

TEST(IsRead, CountsTellWhatAnImageHas) {
    Image image = {};
    const layout::Value& text = *layout::FindKey("workmode_record", "osd.1", "string")->values[0];
    EXPECT_FALSE(IsRead(image, text));
    Put(&image, 24, 1);
    EXPECT_FALSE(IsRead(image, text));
    Put(&image, 24, 2);
    EXPECT_TRUE(IsRead(image, text));
    // Encoders that are counted, and the first that is not.
    const layout::Value& third =
        *layout::FindKey("cam0_comm_photo", "venc.2", "payload")->values[0];
    Put(&image, 10828 + 744, 1);
    EXPECT_FALSE(IsRead(image, third));
    Put(&image, 10828 + 744, 2);
    EXPECT_TRUE(IsRead(image, third));
    // A module whose values are all zero may not be there.
    const layout::Value& mode =
        *layout::FindKey("cam0_mediamode3", "vpss.0", "max_width")->values[0];
    EXPECT_FALSE(IsRead(image, mode));
    Put(&image, mode.offset + 4, 1);
    EXPECT_TRUE(IsRead(image, mode));
}

}  // namespace
}  // namespace paramgen::image
