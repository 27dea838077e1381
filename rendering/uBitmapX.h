// One way to read and write the pixels of a bitmap, whatever its depth.
//
//   TRGB, ConvertRGBToColor ...   pixels as colours, calculating with them          rendering/uBitmapX/Colors.h
//   TBitmapX, CreateBitmapX       reads the pixels of a TBitmap; for each depth a class  rendering/uBitmapX/TBitmapX.h
//   TBitmapXWrite                 writes them, too, of 15, 16, 24 and 32 bits
//   TBitmapDrawOption             what drawing and rendering do with pixels
//   ReadBitmapInfoHeader, SetBitmapDimension
//
// Example:
//   vx::TBitmap bitmap;
//   bitmap.LoadFromFile(u"logo.bmp");
//   auto pixels = vx::TBitmapX::CreateBitmapX(&bitmap);             // does not own the bitmap
//   vx::TRGB corner = pixels->GetPixels(0, 0);
//   auto turned = pixels->Render({vx::bdoRotate90, vx::bdoGray});   // a bitmap of its own, 24 bits
//   turned->iBitmap->SaveToFile(u"quer.bmp");
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfalls: 15 and 16 bits have the first byte of a TRGB, red, in their lowest bits, where files have blue; that is
// wanted, and writing mirrors it. The fourth byte takes part in comparisons. A whole row (GetRow, SetRow) is
// faster than its pixels one by one.
#pragma once

#include "rendering/uBitmapX/Colors.h"
#include "rendering/uBitmapX/TBitmapX.h"
