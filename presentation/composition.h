#pragma once
// The assembly of child elements that makes up the control, as designed: everything an
// instance has when it is created, in the order of the design (which is the z-order of each
// container), with its designed geometry and settings. Later builds and layouts move them; the
// components of the control each take the elements they own from here.
#include <memory>

#include "platform/ui/cell_grid.h"
#include "platform/ui/surface.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

struct ControlElements {
    std::unique_ptr<Scorrix> VS1;      // the vertical scroll bar
    Frame* FrameSceltaColonne;         // the chooser's panel
    CheckBox* CheckScelta;             // item 0 of the chooser's boxes
    PictureBox* ImageTools;            // the chooser's button
    PictureBox* PictureTTT;            // the tooltip
    Label* LabelTTT;                   // its text
    Frame* FrameLine;                  // item 0 of the vertical lines
    Frame* FrameImmagini;              // holds the picture library, never shown
    ImageElement* ImageStyle;          // item 0 of the band textures
    ImageElement* ImageUP;             // item 0 of the up arrows
    ImageElement* ImageDown;           // item 0 of the down arrows
    CellGrid* FG1;                     // the cell surface
    TextBox* TextKey;                  // keeps the keyboard focus, behind FG1
    Frame* Shape2;                     // the heading band
    Label* LabelTopSk;                 // the hover tab of the Scheda style
    ImageElement* PicCol;              // item 0 of the heading pictures
    Label* LabelMenu;                  // item 0 of the heading captions
    ImageElement* ImageZ;              // the hover tile
    ImageElement* Image1;              // item 0 of the heading tiles
    ImageElement* ImageOrd;            // the sort arrow
    Label* LabelTOT;                   // item 0 of the column totals
    Label* LabelCount;                 // the row count
    Label* LblMisuraTitolo;            // measures heading text
    Label* LabelMisTxt;                // measures cell text
    Shape* Shape1;                     // the outline of band and grid
};

// Creates the elements on `surface`, which takes the control's designed size.
ControlElements ComposeControl(Surface& surface);

}  // namespace TabulonLib12
