#include "param/workmode/osd.h"

#include <algorithm>

#include "confaccess/watch.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr Field kOsdDisplayFields[] = {
    FIELD(OsdDisplayCfg, show, "show", 0).About("The overlay is drawn into this picture"),
    FIELD(OsdDisplayCfg, bindModule, "bind_module", 0)
        .About("Number of the firmware module that draws it"),
    FIELD(OsdDisplayCfg, moduleHandle, "modhdl", 0).About("Group of that module"),
    FIELD(OsdDisplayCfg, channelHandle, "chnhdl", 0).About("Port of that group"),
    FIELD(OsdDisplayCfg, startX, "start_x", 0)
        .About("Left edge; below 0: counted from the right")
        .Unit("px"),
    FIELD(OsdDisplayCfg, startY, "start_y", 0)
        .About("Upper edge; below 0: counted from below")
        .Unit("px"),
    FIELD(OsdDisplayCfg, foregroundAlpha, "fg_alpha", 0).About("Opacity of the text"),
    FIELD(OsdDisplayCfg, backgroundAlpha, "bg_alpha", 0).About("Opacity of the background"),
    FIELD(OsdDisplayCfg, batch, "batch", 0).About("Overlays of one batch are changed together"),
    RESERVED(OsdDisplayCfg, reserved24).About("Reserved"),
    RESERVED(OsdDisplayCfg, reserved36).About("Reserved"),
};

constexpr TableOf<OsdDisplayCfg> kOsdDisplayTable{"%s.display.%u", kOsdDisplayFields};

constexpr Field kOsdEntryFields[] = {
    LOADED(OsdEntryCfg, type, "type", 4).About("What the overlay shows"),
    FIELD(OsdEntryCfg, timeFormat, "timefmt", 0).About("Format of the date"),
    FIELD(OsdEntryCfg, text, "string").About("The text, or the file name of the bitmap"),
    FIELD(OsdEntryCfg, color, "color", 0).About("Colour: red * 65536 + green * 256 + blue"),
    FIELD(OsdEntryCfg, backgroundColor, "bg_color", 0)
        .About("Background colour: red * 65536 + green * 256 + blue"),
    FIELD(OsdEntryCfg, bitmapWidth, "bmp_width", 0).About("Width of the drawing area").Unit("px"),
    FIELD(OsdEntryCfg, bitmapHeight, "bmp_height", 0)
        .About("Height of the drawing area")
        .Unit("px"),
    FIELD(OsdEntryCfg, displayCount, "dispnum", 0)
        .About("Number of pictures that it is drawn into, as read"),
    RECORD(OsdEntryCfg, displays, kOsdDisplayTable)
        .CountedBy(offsetof(OsdEntryCfg, displayCount), CountBeyond::kClamped),
};

constexpr TableOf<OsdEntryCfg> kOsdEntryTable{"%s.%u", kOsdEntryFields};

constexpr Field kOsdFields[] = {
    FIELD(OsdCfg, count, "osdcnt", 0).About("Number of overlays, as read"),
    FIELD(OsdCfg, baseFontWidth, "base_font_w", 0).About("Width of the base font").Unit("px"),
    FIELD(OsdCfg, baseFontHeight, "base_font_h", 0).About("Height of the base font").Unit("px"),
    FIELD(OsdCfg, baseWidth, "base_res_w", 0)
        .About("Width of the base resolution, which fonts and positions refer to")
        .Unit("px"),
    FIELD(OsdCfg, baseHeight, "base_res_h", 0).About("Height of the base resolution").Unit("px"),
    RECORD(OsdCfg, entries, kOsdEntryTable)
        .CountedBy(offsetof(OsdCfg, count), CountBeyond::kClamped),
};

namespace {

std::uint32_t UsedEntries(const OsdCfg& cfg) {
    return std::min(cfg.count, kOsdCountMax);
}

}  // namespace

constexpr TableOf<OsdCfg> kOsdTable{nullptr, kOsdFields};

Status PDT_INIPARAM_LoadOsdContent(const char* module, const char* node, OsdCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    for (std::uint32_t i = 0; i < UsedEntries(*cfg); ++i) {
        OsdEntryCfg* entry = &cfg->entries[i];
        Key entryNode;
        FILL_OR_RETURN(entryNode, "sprintf_s", kOsdEntryTable, node, i);
        const char* prefix = entryNode.c_str();
        constexpr const Field& type = ROW(kOsdEntryTable, type);
        WATCH_DESTINATION(&entry->type, sizeof entry->type);
        CALL_OR_RETURN(PDT_INIPARAM_LoadIntValueByNodePrefix(module, prefix, type.key,
                                                             type.Number(), &entry->type),
                       "osdType");
        LOG_DEBUG("osd.%u type[%d]\n", i, entry->type);
        LOAD_OR_RETURN(module, prefix, ROW(kOsdEntryTable, timeFormat), entry);
        LOG_DEBUG("timefmt[%d]\n", entry->timeFormat);
        LOAD_OR_RETURN(module, prefix, ROWS(kOsdEntryTable, text, backgroundColor), entry);
        LOG_DEBUG("color[%d] bg_color[%d]\n", entry->color, entry->backgroundColor);
        LOAD_OR_RETURN(module, prefix, ROWS(kOsdEntryTable, bitmapWidth, bitmapHeight), entry);
        LOG_DEBUG("bmp_width[%d] bmp_height[%d]\n", entry->bitmapWidth, entry->bitmapHeight);
        LOAD_OR_RETURN(module, prefix, ROW(kOsdEntryTable, displayCount), entry);
        LOG_DEBUG("dispnum[%d]\n", entry->displayCount);
    }
    return kOk;
}

Status PDT_INIPARAM_LoadOsdDispAttr(const char* module, const char* node, OsdCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    for (std::uint32_t i = 0; i < UsedEntries(*cfg); ++i) {
        OsdEntryCfg* entry = &cfg->entries[i];
        for (std::uint32_t j = 0; j < std::min(entry->displayCount, kOsdDisplayCountMax); ++j) {
            OsdDisplayCfg* display = &entry->displays[j];
            Key entryNode;
            FILL_OR_RETURN(entryNode, "sprintf_s", kOsdEntryTable, node, i);
            Key displayNode;
            FILL_OR_RETURN(displayNode, "sprintf_s", kOsdDisplayTable, entryNode.c_str(), j);
            LOAD_OR_RETURN(module, displayNode, kOsdDisplayTable, display);
            LOG_DEBUG(
                "osd.%u.display.%u:\n"
                "show[%d] bind_mod[%d] mod[%u] chn[%u] (%d,%d) fg[%d] bg[%d] batch[%d]\n",
                i, j, display->show, display->bindModule, display->moduleHandle,
                display->channelHandle, display->startX, display->startY, display->foregroundAlpha,
                display->backgroundAlpha, display->batch);
        }
    }
    return kOk;
}

Status PDT_INIPARAM_LoadOsdCfg(const char* module, const char* node, OsdCfg* cfg) {
    LOAD_OR_RETURN(module, node, kOsdTable, cfg);
    LOG_DEBUG("s32OsdCnt[%d] BaseFontSize[%d,%d] BaseRes[%d,%d]\n", cfg->count, cfg->baseFontWidth,
              cfg->baseFontHeight, cfg->baseWidth, cfg->baseHeight);
    CALL_OR_RETURN(PDT_INIPARAM_LoadOsdContent(module, node, cfg), "osd content");
    // The content holds the number of displays, so it is loaded first.
    CALL_OR_RETURN(PDT_INIPARAM_LoadOsdDispAttr(module, node, cfg), "osd display");
    return kOk;
}

}  // namespace paramgen
