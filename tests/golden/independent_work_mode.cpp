// The work mode section: how the camera starts, and its photo and record modes.

#include "golden/independent_sections.h"

namespace paramgen::testing::independent {
namespace {

void PlaceOverlayContent(Placer& put, std::size_t at, const std::string& node) {
    put.S32(at + 4, node + ":type", 4);
    put.S32(at + 8, node + ":timefmt");
    put.Text(at + 20, 64, node + ":string");
    put.U32(at + 12, node + ":color");
    put.U32(at + 16, node + ":bg_color");
    put.U32(at + 84, node + ":bmp_width");
    put.U32(at + 88, node + ":bmp_height");
    const std::uint32_t displays = put.Count(at + 0, node + ":dispnum", 4, Above::kIsCut);
    for (std::size_t j = 0; j < displays; ++j) {
        const std::string display = node + ".display." + N(j);
        const std::size_t to = at + 92 + 44 * j;
        put.Bool(to + 0, display + ":show");
        put.S32(to + 4, display + ":bind_module");
        put.S32(to + 8, display + ":modhdl");
        put.S32(to + 12, display + ":chnhdl");
        put.U32(to + 16, display + ":fg_alpha");
        put.U32(to + 20, display + ":bg_alpha");
        put.Word(to + 24, 0);
        put.S32(to + 28, display + ":start_x");
        put.S32(to + 32, display + ":start_y");
        put.Word(to + 36, 0);
        put.U32(to + 40, display + ":batch");
    }
}

void PlaceOverlays(Placer& put, std::size_t at) {
    const std::uint32_t overlays = put.Count(at + 0, "osd:osdcnt", 16, Above::kIsCut);
    put.U32(at + 4, "osd:base_font_w");
    put.U32(at + 8, "osd:base_font_h");
    put.U32(at + 12, "osd:base_res_w");
    put.U32(at + 16, "osd:base_res_h");
    for (std::size_t i = 0; i < overlays; ++i) {
        PlaceOverlayContent(put, at + 20 + 268 * i, "osd." + N(i));
    }
}

void PlacePhotoSource(Placer& put, std::size_t at) {
    put.Bool(at + 0, "photosource.0:enable");
    put.S32(at + 4, "photosource.0:vcappipehdl");
    put.S32(at + 8, "photosource.0:pipechnhdl");
    put.S32(at + 12, "photosource.0:vpsshdl");
    put.S32(at + 16, "photosource.0:vporthdl");
    put.S32(at + 20, "photosource.0:venchdl");
    put.S32(at + 24, "photosource.0:thumbnail_hdl");
}

void PlacePhotoType(Placer& put, std::size_t at) {
    put.S32(at + 0, "phototype.0:type");
    put.S32(at + 4, "phototype.0.single:outputformat");
    put.U32(at + 8, "phototype.0.lapse:interval_time");
    put.Mode(at + 12, "phototype.0.burst:mediamode");
    put.S32(at + 16, "phototype.0.burst:burst_type");
}

void PlacePhoto(Placer put, std::size_t at) {
    PlaceOverlays(put, at + 0);
    PlaceCamMediaMode(put, at + 4308, "common.mediamode.config.0");
    PlacePhotoSource(put, at + 4316);
    PlacePhotoType(put, at + 4344);
}

void PlaceRecordCommon(Placer& put, std::size_t at) {
    put.Word(at + 0, 0);
    put.S32(at + 4, "record.common:thm_type");
    put.U32(at + 8, "record.common:repaire_unit");
    put.U32(at + 12, "record.common:pre_alloc_unit");
}

void PlaceRecordFile(Placer& put, std::size_t at, const std::string& node) {
    const std::uint32_t videos = put.Count(at + 0, node + ":venccnt", 2, Above::kIsCut);
    for (std::size_t i = 0; i < videos; ++i) {
        put.S32(at + 12 + 4 * i, node + ":venc_hdl" + N(i));
        put.S32(at + 20 + 4 * i, node + ":recbuffer_time" + N(i));
    }
    if (put.Count(at + 4, node + ":aenccnt", 2, Above::kIsCut) >= 1) {
        put.S32(at + 28, node + ":aenc_hdl0");
    }
    put.S32(at + 36, node + ":thumbnail_hdl");
}

void PlaceRecordFiles(Placer& put, std::size_t at) {
    const std::uint32_t files = put.Count(at + 28, "normal.0:filecnt", 2, Above::kIsCut);
    const std::uint32_t thumbnails = put.Count(at + 112, "normal.0:thmcnt", 4, Above::kIsWrong);
    for (std::size_t i = 0; i < thumbnails && !put.Failed(); ++i) {
        put.S32(at + 116 + 4 * i, "normal.0:thmhdl" + N(i));
    }
    for (std::size_t k = 0; k < files; ++k) {
        PlaceRecordFile(put, at + 32 + 40 * k, "normal.0.filenum." + N(k) + ".fileattr");
        put.S32(at + 132 + 4 * k, "normal.0.filenum." + N(k) + ".fileattr:recvbuf_size");
    }
}

void PlaceNormalRecord(Placer& put, std::size_t at) {
    put.Bool(at + 0, "normal.0:enable");
    put.S32(at + 8, "normal.0:split_type");
    put.U32(at + 12, "normal.0:split_time");
    put.U32(at + 24, "normal.0:prerec_time");
    put.S32(at + 140, "normal.0:playfps");
    put.S32(at + 144, "normal.0:record_type");
    put.U32(at + 148, "normal.0:lapse_interval");
    put.S32(at + 152, "normal.0:slowrec_playfps");
    PlaceRecordFiles(put, at);
}

void PlaceRecord(Placer put, std::size_t at) {
    PlaceCamMediaMode(put, at + 4308, "common.mediamode.config.0");
    PlaceOverlays(put, at + 0);
    PlaceRecordCommon(put, at + 4316);
    PlacePhotoSource(put, at + 4336);
    PlaceNormalRecord(put, at + 4368);
}

}  // namespace

void PlaceWorkMode(const Placer& put, std::size_t at) {
    put.Of("workmode_common").S32(at + 0, "common:poweron_workmode");
    PlacePhoto(put.Of("workmode_photo"), at + 4536);
    PlaceRecord(put.Of("workmode_record"), at + 8);
}

void PlaceCamMediaMode(Placer& put, std::size_t at, const std::string& node) {
    put.S32(at + 0, node + ":camid");
    put.Mode(at + 4, node + ":mediamode");
}

}  // namespace paramgen::testing::independent
