/// The sections of the independent image. Each function stores one at the offset that it is given.
#pragma once

#include "golden/independent_placer.h"

namespace paramgen::testing::independent {

void PlaceWorkMode(const Placer& put, std::size_t at);
void PlaceMediaCommon(Placer put, std::size_t at);
void PlaceCamera(const Placer& put, std::size_t at, std::size_t camera);
void PlaceFileManagement(Placer put, std::size_t at);
void PlaceDeviceManagement(Placer put, std::size_t at);
void PlaceValueSets(Placer put, std::size_t at);

/// The camera's capture and lens correction, which fill parts of its media modes.
void PlaceCaptureSpec(Placer& put, std::size_t at, std::int32_t mode);
void PlaceLensCorrection(const Placer& put, std::size_t at, std::int32_t mode);

/// Stores a work mode's camera and media mode.
void PlaceCamMediaMode(Placer& put, std::size_t at, const std::string& node);

}  // namespace paramgen::testing::independent
