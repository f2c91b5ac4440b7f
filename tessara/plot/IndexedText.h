#pragma once

#include "tessara/platform/gdi/MetaFileDC.h"

// Indexed text: the markup of all labels. A run of characters is closed by a tilde and a letter that says how
// the run is drawn; what follows the last control is normal.
//
//   ~N normal       ~H superscript         ~L subscript       ~b bold    ~i italic
//   ~G Greek        ~j Greek superscript   ~g Greek subscript
//   ~B the run's first character with its second below and its third above it
//
// Greek runs are in the Symbol encoding: "F~G" is a capital phi, "c~G" a chi. A tilde and any other character
// are dropped and the character after them is taken as it is ("a~~~b" cannot occur by accident); a tilde at
// the very end is dropped. A run is cut after 127 bytes, never inside a character.
//
//     IndexedTextOut(pDC, 100, 100, "T~NC~L = 27.5 ~N\xB0~NC~N", 166, nullptr);

/// Draws a text with its top-left at (x, y), in logical units, on the surface and, when it is given, on the
/// picture. size is the height of a line of normal text; its sign is ignored. Returns 1.
TESSARA_API int IndexedTextOut(CDC* pDC, int x, int y, const char* text, int size, CMetaFileDC* pMetaDC);

/// The rectangle (0, 0, width, height) of a text: width is the sum of all advances, height the line height of
/// the normal runs that "~N" closes, 0 without one. Draws nothing. Returns 1.
TESSARA_API int GetIndexedTextExtent(CDC* pDC, const char* text, int size, RECT* pRect);

/// What both do: draws when pRect is null, else only measures. Returns 1.
TESSARA_API int RenderIndexedText(CDC* pDC, int x, int y, const char* text, int size, CMetaFileDC* pMetaDC,
                                  RECT* pRect);
