#include "views/shared/pictures/PictureFile.h"

#include <ole2.h>
#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/Failure.h"
#include "platform/TextFile.h"
#include "platform/WideText_win32.h"
#include "views/win32/pictures/IconFile.h"

namespace korvane {
namespace {

using Microsoft::WRL::ComPtr;

void require(bool well, const std::string& path, const std::string& reason) {
  if (!well) throw Failure(kInvalidPicture, path + ": " + reason);
}

void requireDone(HRESULT result, const std::string& path) {
  require(SUCCEEDED(result), path, "the picture can't be read");
}

void requireSize(UINT width, UINT height, const std::string& path) {
  require(pictureFits(width, height, kMostPicturePixels), path, kPictureTooLarge);
}

// The decoders are components; a desk's thread has its apartment already.
class Apartment {
 public:
  Apartment() : entered_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~Apartment() {
    if (SUCCEEDED(entered_)) CoUninitialize();
  }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;

 private:
  HRESULT entered_;
};

/// The rectangle of a frame within the whole picture, and where its pixels come from.
struct Frame {
  ComPtr<IWICBitmapFrameDecode> picture;
  ComPtr<IWICBitmapSource> pixels;
  UINT width = 0;
  UINT height = 0;
  int left = 0;
  int top = 0;
};

ComPtr<IWICImagingFactory> imaging(const std::string& path) {
  ComPtr<IWICImagingFactory> factory;
  requireDone(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                               IID_PPV_ARGS(&factory)),
              path);
  return factory;
}

GUID kindOf(IWICBitmapDecoder& decoder, const std::string& path) {
  GUID kind{};
  requireDone(decoder.GetContainerFormat(&kind), path);
  const bool known = kind == GUID_ContainerFormatBmp || kind == GUID_ContainerFormatJpeg ||
                     kind == GUID_ContainerFormatGif || kind == GUID_ContainerFormatIco ||
                     kind == GUID_ContainerFormatPng;
  require(known, path, "not a bmp, jpg, gif, ico or png picture");
  return kind;
}

Frame frameOf(IWICBitmapDecoder& decoder, UINT index, const std::string& path) {
  Frame frame;
  requireDone(decoder.GetFrame(index, &frame.picture), path);
  requireDone(frame.picture->GetSize(&frame.width, &frame.height), path);
  frame.pixels = frame.picture;
  return frame;
}

Frame wholeFrame(IWICBitmapDecoder& decoder, UINT index, const std::string& path) {
  Frame frame = frameOf(decoder, index, path);
  requireSize(frame.width, frame.height, path);
  return frame;
}

// The scaler asks the decoder for no more than it needs.
Frame reducedFrame(IWICBitmapDecoder& decoder, IWICImagingFactory& factory,
                   const std::string& path) {
  Frame frame = frameOf(decoder, 0, path);
  require(pictureFits(frame.width, frame.height, kMostJpegPixels), path, kJpegTooLarge);
  const auto by = static_cast<UINT>(pictureReduction(frame.width, frame.height));
  if (by == 1) return frame;
  ComPtr<IWICBitmapScaler> scaler;
  requireDone(factory.CreateBitmapScaler(&scaler), path);
  frame.width /= by;
  frame.height /= by;
  requireDone(scaler->Initialize(frame.picture.Get(), frame.width, frame.height,
                                 WICBitmapInterpolationModeNearestNeighbor),
              path);
  frame.pixels = scaler;
  return frame;
}

Frame largestFrame(IWICBitmapDecoder& decoder, const std::string& path) {
  UINT count = 0;
  requireDone(decoder.GetFrameCount(&count), path);
  Frame largest;
  for (UINT i = 0; i < count; ++i) {
    Frame frame = wholeFrame(decoder, i, path);
    if (std::uint64_t{frame.width} * frame.height > std::uint64_t{largest.width} * largest.height)
      largest = frame;
  }
  require(largest.picture != nullptr, path, "there is no picture in it");
  return largest;
}

UINT number(IWICMetadataQueryReader& reader, const wchar_t* name, const std::string& path) {
  PROPVARIANT value;
  PropVariantInit(&value);
  requireDone(reader.GetMetadataByName(name, &value), path);
  const UINT found = value.vt == VT_UI2 ? value.uiVal : 0;
  PropVariantClear(&value);
  return found;
}

// A frame of a gif file covers a part of its screen.
Raster screenOf(IWICBitmapDecoder& decoder, Frame& frame, const std::string& path) {
  ComPtr<IWICMetadataQueryReader> whole;
  ComPtr<IWICMetadataQueryReader> part;
  requireDone(decoder.GetMetadataQueryReader(&whole), path);
  requireDone(frame.picture->GetMetadataQueryReader(&part), path);
  frame.left = static_cast<int>(number(*part.Get(), L"/imgdesc/Left", path));
  frame.top = static_cast<int>(number(*part.Get(), L"/imgdesc/Top", path));
  const UINT width = number(*whole.Get(), L"/logscrdesc/Width", path);
  const UINT height = number(*whole.Get(), L"/logscrdesc/Height", path);
  requireSize(width, height, path);
  return {static_cast<int>(width), static_cast<int>(height)};
}

Frame chosenFrame(IWICBitmapDecoder& decoder, const GUID& kind, IWICImagingFactory& factory,
                  const std::string& path) {
  if (kind == GUID_ContainerFormatIco) return largestFrame(decoder, path);
  if (kind == GUID_ContainerFormatJpeg) return reducedFrame(decoder, factory, path);
  return wholeFrame(decoder, 0, path);
}

// Premultiplied colours are colours over black. Lines are fetched in bands: a decoder may begin
// anew for each.
void copyPixels(Raster& raster, const Frame& frame, IWICImagingFactory& factory,
                const std::string& path) {
  ComPtr<IWICFormatConverter> plain;
  requireDone(factory.CreateFormatConverter(&plain), path);
  requireDone(plain->Initialize(frame.pixels.Get(), GUID_WICPixelFormat32bppPBGRA,
                                WICBitmapDitherTypeNone, nullptr, 0, WICBitmapPaletteTypeCustom),
              path);
  constexpr UINT kBand = 512;
  std::vector<std::uint32_t> band(std::size_t{frame.width} * std::min(kBand, frame.height));
  for (UINT top = 0; top < frame.height; top += kBand) {
    const UINT lines = std::min(kBand, frame.height - top);
    const WICRect part{0, static_cast<INT>(top), static_cast<INT>(frame.width),
                       static_cast<INT>(lines)};
    const UINT stride = frame.width * 4;
    requireDone(
        plain->CopyPixels(&part, stride, stride * lines, reinterpret_cast<BYTE*>(band.data())),
        path);
    for (UINT y = 0; y < lines; ++y) {
      for (UINT x = 0; x < frame.width; ++x) {
        const std::uint32_t pixel = band[std::size_t{y} * frame.width + x];
        const auto component = [&](int shift) { return static_cast<int>(pixel >> shift & 255); };
        raster.setPixel(frame.left + static_cast<int>(x), frame.top + static_cast<int>(top + y),
                        rgb(component(16), component(8), component(0)));
      }
    }
  }
}

}  // namespace

Raster readPicture(const std::string& path) {
  if (!fileExists(path)) throw Failure(kFileNotFound, path);
  for (const auto& [width, height] : iconSizes(path)) requireSize(width, height, path);
  const Apartment apartment;
  const ComPtr<IWICImagingFactory> factory = imaging(path);
  ComPtr<IWICBitmapDecoder> decoder;
  const HRESULT opened = factory->CreateDecoderFromFilename(
      toWide(path).c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand, &decoder);
  require(SUCCEEDED(opened), path, "not a bmp, jpg, gif, ico or png picture");
  const GUID kind = kindOf(*decoder.Get(), path);
  Frame frame = chosenFrame(*decoder.Get(), kind, *factory.Get(), path);
  Raster raster = kind == GUID_ContainerFormatGif
                      ? screenOf(*decoder.Get(), frame, path)
                      : Raster(static_cast<int>(frame.width), static_cast<int>(frame.height));
  copyPixels(raster, frame, *factory.Get(), path);
  return raster;
}

}  // namespace korvane
