#include "param/media_common/display.h"

#include "param/common/propagate.h"

namespace paramgen {

/// Node template of an ordinary window. There are none yet, see `kDispWndCount`.
constexpr char kWndNode[] = "disp.%d.window.%d";

constexpr Field kDispCscFields[] = {
    QUERY(DispCscAttr, matrix, "cscmatrix").About("Matrix of the colour-space conversion"),
    FIELD(DispCscAttr, luma, "luma", 0).About("Brightness of the picture"),
    FIELD(DispCscAttr, contrast, "contrast", 0).About("Contrast of the picture"),
    FIELD(DispCscAttr, hue, "hue", 0).About("Hue of the picture"),
    FIELD(DispCscAttr, saturation, "saturation", 0).About("Saturation of the picture"),
};

constexpr Field kDispAspectFields[] = {
    FIELD(DispAspectAttr, mode, "mode", 0).About("Aspect mode"),
    FIELD(DispAspectAttr, bgColor, "bg_color", 0)
        .About("Background colour: red * 65536 + green * 256 + blue"),
    FIELD(DispAspectAttr, rectX, "rect_x", 0)
        .About("Left edge of the video in the window")
        .Unit("px"),
    FIELD(DispAspectAttr, rectY, "rect_y", 0)
        .About("Upper edge of the video in the window")
        .Unit("px"),
    FIELD(DispAspectAttr, rectWidth, "rect_width", 0).About("Width of the video").Unit("px"),
    FIELD(DispAspectAttr, rectHeight, "rect_height", 0).About("Height of the video").Unit("px"),
};

constexpr Field kDispWndAttrFields[] = {
    FIELD(DispWndAttr, rectX, "rect_x", 0)
        .About("Left edge of the window on the display")
        .Unit("px"),
    FIELD(DispWndAttr, rectY, "rect_y", 0)
        .About("Upper edge of the window on the display")
        .Unit("px"),
    FIELD(DispWndAttr, rectWidth, "rect_width", 0).About("Width of the window").Unit("px"),
    FIELD(DispWndAttr, rectHeight, "rect_height", 0).About("Height of the window").Unit("px"),
    FIELD(DispWndAttr, priority, "priority", 0).About("Layer of the window"),
};

constexpr TableOf<DispCscAttr> kDispCscTable{nullptr, kDispCscFields};
constexpr TableOf<DispAspectAttr> kDispAspectTable{nullptr, kDispAspectFields};
constexpr TableOf<DispWndAttr> kDispWndAttrTable{nullptr, kDispWndAttrFields};

constexpr Field kDispWndFields[] = {
    FIELD(DispWndCfg, enable, "enable", 0).About("The window is in use"),
    FIELD(DispWndCfg, handle, "wndhdl", 0).About("Handle of the window"),
    FIELD(DispWndCfg, previewCamId, "preview_cam_id", 0)
        .About("Number of the camera that is previewed"),
    FIELD(DispWndCfg, rotate, "rotate", 0)
        .About("Rotation of the picture")
        .Numbers("0 none, 1 90 degrees, 2 180 degrees, 3 270 degrees"),
    RECORD(DispWndCfg, aspect, kDispAspectTable).Under("%s.aspectratio"),
    RECORD(DispWndCfg, rect, kDispWndAttrTable).Under("%s.wndattr"),
};

constexpr TableOf<DispWndCfg> kDispWndTable{nullptr, kDispWndFields};

constexpr Field kDispFields[] = {
    FIELD(DispCfg, enable, "enable", 0).About("The display is in use"),
    FIELD(DispCfg, handle, "disphdl", 0).About("Handle of the display"),
    FIELD(DispCfg, bgColor, "bg_color", 0)
        .About("Background colour: red * 65536 + green * 256 + blue"),
    FIELD(DispCfg, windowCount, "windowcnt", 0).About("Number of windows; no window is read by it"),
    FIELD(DispCfg, enableCsc, "enable", 0)
        .Under("disp.%d.csc")
        .Label("csc enable")
        .About("Colour-space conversion is on"),
    RECORD(DispCfg, csc, kDispCscTable).Under("disp.%d.csc"),
    RECORD(DispCfg, source, kVideoModTable).Under("disp.%d.SRC.%d"),
    RECORD(DispCfg, playbackWnd, kDispWndTable).Under("disp.%d.playbackwindow.0"),
    RESERVED(DispCfg, reserved).About("Reserved"),
};

constexpr TableOf<DispCfg> kDispTable{"disp.%d", kDispFields};

Status PDT_INIPARAM_LoadMediaCommDispCSCAttr(const char* module, const char* prefix,
                                             DispCscAttr* attr) {
    LOAD_OR_RETURN(module, prefix, kDispCscTable, attr);
    LOG_DEBUG("      luma[%u], contrast[%u], hue[%u], saturation[%u]\n", attr->luma, attr->contrast,
              attr->hue, attr->saturation);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommDispAspectAttr(const char* module, const char* prefix,
                                                DispAspectAttr* attr) {
    LOAD_OR_RETURN(module, prefix, kDispAspectTable, attr);
    LOG_DEBUG("    aspect mode[%d] bgcolor[%d] start[%u,%u], size[%u,%u]\n", attr->mode,
              attr->bgColor, attr->rectX, attr->rectY, attr->rectWidth, attr->rectHeight);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommDispWndAttr(const char* module, const char* prefix,
                                             DispWndAttr* attr) {
    LOAD_OR_RETURN(module, prefix, kDispWndAttrTable, attr);
    LOG_DEBUG("    WndAttr pos[%u,%u], size[%u,%u], priority[%u]\n", attr->rectX, attr->rectY,
              attr->rectWidth, attr->rectHeight, attr->priority);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommDispWndCfg(const char* module, const char* prefix,
                                            DispWndCfg* cfg) {
    LOAD_OR_RETURN(module, prefix, ROWS(kDispWndTable, enable, previewCamId), cfg);
    LOG_DEBUG("    Prefix[%s] enable[%d] wndhdl[%d] preview_cam_id[%d] \n", prefix, cfg->enable,
              cfg->handle, cfg->previewCamId);
    LOAD_OR_RETURN(module, prefix, ROW(kDispWndTable, rotate), cfg);
    LOG_DEBUG("    Rotate[%d, 0:0, 1:90, 2:180, 3:270]\n", cfg->rotate);
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", ROW(kDispWndTable, aspect), prefix);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommDispAspectAttr(module, node.c_str(), &cfg->aspect),
                   "AspectAttr");
    FILL_OR_RETURN(node, "sprintf_s", ROW(kDispWndTable, rect), prefix);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommDispWndAttr(module, node.c_str(), &cfg->rect),
                   "WndAttr");
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommDispCfg(const char* module, std::int32_t index, DispCfg* cfg) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kDispTable, index);
    LOAD_OR_RETURN(module, node, ROWS(kDispTable, enable, handle), cfg);
    LOG_DEBUG("Display[%d]: enable[%d] disphdl[%d]\n", index, cfg->enable, cfg->handle);
    LOAD_OR_RETURN(module, node, ROW(kDispTable, bgColor), cfg);
    LOG_DEBUG(" bg color[%08x]\n", cfg->bgColor);
    LOAD_OR_RETURN(module, node, ROW(kDispTable, windowCount), cfg);
    LOG_DEBUG("Display[%d]: windowcnt[%d]\n", index, cfg->windowCount);
    FILL_OR_RETURN(node, "sprintf_s", ROWS(kDispTable, enableCsc, csc), index);
    LOAD_OR_RETURN(module, node, ROW(kDispTable, enableCsc), cfg);
    LOG_DEBUG("    CSCEnable[%d]\n", cfg->enableCsc);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommDispCSCAttr(module, node.c_str(), &cfg->csc),
                   "CSCAttr");
    for (std::int32_t i = 0; i < kDispSourceCount; ++i) {
        FILL_OR_RETURN(node, "sprintf_s", ROW(kDispTable, source), index, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadVideoModCfg(module, node.c_str(), &cfg->source[i]),
                       "disp src");
    }
    for (std::int32_t i = 0; i < kDispWndCount; ++i) {
        FILL_OR_RETURN(node, "sprintf_s", kWndNode, index, i);
        CALL_OR_RETURN(
            PDT_INIPARAM_LoadMediaCommDispWndCfg(module, node.c_str(), &cfg->playbackWnd + i),
            "WndCfg");
    }
    FILL_OR_RETURN(node, "sprintf_s", ROW(kDispTable, playbackWnd), index);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommDispWndCfg(module, node.c_str(), &cfg->playbackWnd),
                   "playback WndCfg");
    return kOk;
}

}  // namespace paramgen
