#pragma once
// The element model: every look and behaviour of the control is a property write on one of
// its child elements. Geometry is in twips, stored exactly as written. Elements live on one
// Surface, which owns them, orders them and routes input to them.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "graphics.h"

namespace TabulonLib12 {

class Surface;

enum class ElementKind { Surface, Label, Image, Frame, Shape, PictureBox, TextBox, CheckBox, Timer, CellGrid };

// Mouse buttons and shift states as the events carry them.
namespace MouseButton {
inline constexpr int16_t Left = 1;
inline constexpr int16_t Right = 2;
inline constexpr int16_t Middle = 4;
}  // namespace MouseButton
namespace ShiftState {
inline constexpr int16_t Shift = 1;
inline constexpr int16_t Ctrl = 2;
inline constexpr int16_t Alt = 4;
}  // namespace ShiftState

class Element {
public:
    virtual ~Element();
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    ElementKind Kind() const { return kind_; }
    const std::string& Name() const { return name_; }
    // Index within a control array; -1 for an element that is not part of one.
    int16_t Index() const { return index_; }
    Surface& Owner() const { return *surface_; }

    // Container: another element that holds children (surface, frame, picture box), or null
    // for the surface itself.
    Element* Container() const { return container_; }
    void setContainer(Element* container);  // a container must be able to hold children
    const std::vector<Element*>& Children() const { return children_; }
    bool IsContainer() const;
    // Graphical elements (label, image, shape) are drawn beneath the windowed ones of the same
    // container whatever their z-order, and shapes take no mouse input.
    bool IsGraphical() const;

    float Left() const { return left_; }
    float Top() const { return top_; }
    float Width() const { return width_; }
    float Height() const { return height_; }
    void setLeft(float v);
    void setTop(float v);
    virtual void setWidth(float v);   // a negative size is refused (InvalidValue)
    virtual void setHeight(float v);
    // Geometry must be finite; a NaN or infinite value is refused (InvalidValue).
    // Move(left, top[, width[, height]]) as one change; a refused value changes nothing.
    void Move(float left, float top);
    void Move(float left, float top, float width);
    void Move(float left, float top, float width, float height);

    // Position of the element's top-left corner on the surface, summing its containers.
    float SurfaceLeft() const;
    float SurfaceTop() const;

    bool Visible() const { return visible_; }
    void setVisible(bool v);
    // Visible and every container up to the surface visible.
    bool IsShown() const;
    bool Enabled() const { return enabled_; }
    virtual void setEnabled(bool v);
    // Enabled and every container enabled: only such elements take input.
    bool IsActive() const;

    Colour BackColor() const { return backColor_; }
    void setBackColor(Colour c);
    Colour ForeColor() const { return foreColor_; }
    void setForeColor(Colour c);
    const Font& GetFont() const { return font_; }
    virtual void setFont(const Font& f);

    const std::string& ToolTipText() const { return toolTip_; }
    void setToolTipText(const std::string& t);
    const std::string& Tag() const { return tag_; }
    void setTag(const std::string& t) { tag_ = t; }
    int16_t MousePointer() const { return mousePointer_; }
    void setMousePointer(int16_t p);  // 0 to 15 and 99; others refused
    const Picture& MouseIcon() const { return mouseIcon_; }
    void setMouseIcon(Picture p) { mouseIcon_ = std::move(p); }

    // Z-order: 0 brings the element to the front of its layer, 1 sends it to the back; other
    // positions are refused (InvalidValue).
    void ZOrder(int position = 0);

    // Focus: only elements that can hold it take it (text box, check box, picture box, cell
    // grid); SetFocus on another kind, or on a hidden or disabled one, fails (InvalidValue).
    // Hiding or disabling the focused element (or a container of it) takes the focus away.
    virtual bool CanFocus() const { return false; }
    void SetFocus();
    bool HasFocus() const;

    // Events. Arguments go by reference, as the handlers may change them.
    std::function<void(Element&)> onClick, onDblClick, onGotFocus, onLostFocus;
    std::function<void(Element&, int16_t& button, int16_t& shift, float& x, float& y)> onMouseDown, onMouseMove,
        onMouseUp;
    std::function<void(Element&, int16_t& keyCode, int16_t& shift)> onKeyDown, onKeyUp;
    std::function<void(Element&, int16_t& keyAscii)> onKeyPress;

    // Input as the surface delivers it, in the element's own coordinates. Subclasses (the cell
    // grid) add their own behaviour and call these to raise the events.
    virtual void HandleMouseDown(int16_t button, int16_t shift, float x, float y);
    virtual void HandleMouseMove(int16_t button, int16_t shift, float x, float y);
    virtual void HandleMouseUp(int16_t button, int16_t shift, float x, float y);
    virtual void HandleClick();
    virtual void HandleDblClick();
    virtual void HandleKeyDown(int16_t keyCode, int16_t shift);
    virtual void HandleKeyPress(int16_t keyAscii);
    virtual void HandleKeyUp(int16_t keyCode, int16_t shift);

protected:
    Element(Surface* surface, ElementKind kind, std::string name);
    // Copies the properties of `other` (the item 0 of a control array) and its handlers.
    virtual void CopyFrom(const Element& other);
    // Asks the surface to paint again (coalesced by the realisation), when the element is shown
    // and its painting is not suspended.
    void Invalidate() const;
    // True while the element's own changes should not repaint (the cell grid with Redraw False).
    virtual bool PaintSuspended() const { return false; }
    // Called after Width or Height changed (by a write or by Move).
    virtual void SizeChanged() {}
    // Raises onKeyPress and answers the key as the handler left it.
    int16_t RaiseKeyPress(int16_t keyAscii);

private:
    friend class Surface;
    Surface* surface_;
    ElementKind kind_;
    std::string name_;
    int16_t index_ = -1;
    Element* container_ = nullptr;
    std::vector<Element*> children_;  // back to front

    float left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    bool visible_ = true, enabled_ = true;
    Colour backColor_ = SystemColour::ButtonFace;
    Colour foreColor_ = SystemColour::ButtonText;
    Font font_;
    std::string toolTip_, tag_;
    int16_t mousePointer_ = Pointer::Default;
    Picture mouseIcon_;
};

}  // namespace TabulonLib12
