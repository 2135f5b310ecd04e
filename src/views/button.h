#pragma once

#include "views/view.h"

namespace rulemesh {

/// A view that is nothing but a caption: a label, a frame, the base of a button. "&" marks the access key.
class CaptionedView : public View {
public:
    CaptionedView(ViewTree& tree, ViewKind kind, const ViewDesign& design)
        : View(tree, kind, design), caption_(design.Caption)
    {
    }

    [[nodiscard]] const Text& Caption() const noexcept { return caption_; }
    void Caption(Text caption)
    {
        caption_ = std::move(caption);
        Changed();
    }

protected:
    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override { return CopyOf(std::tie(caption_)); }
    void PutOwnValuesBack(const ViewValues& values) override { PutBack(values, std::tie(caption_)); }

private:
    Text caption_;
};

class Label : public CaptionedView {
public:
    Label(ViewTree& tree, const ViewDesign& design) : CaptionedView(tree, ViewKind::Label, design) {}
};

/// A frame holds other views; they name it as their parent.
class Frame : public CaptionedView {
public:
    Frame(ViewTree& tree, const ViewDesign& design) : CaptionedView(tree, ViewKind::Frame, design) {}
};

class Button : public CaptionedView {
public:
    Button(ViewTree& tree, const ViewDesign& design) : CaptionedView(tree, ViewKind::Button, design) {}

    /// Whether Enter presses the button from wherever nothing else takes that key.
    [[nodiscard]] bool Default() const noexcept { return default_; }
    void Default(bool isDefault)
    {
        default_ = isDefault;
        Changed();
    }

    /// Moves the focus to the button and runs the click. The click is lost when the focus does not get there.
    void UserClicks();

    Slot Click;

private:
    bool default_ = false;
};

/// A flat picture that acts like a button but takes no focus.
class PictureButton : public View {
public:
    enum class Picture { ImgMax, ImgMin };

    PictureButton(ViewTree& tree, const ViewDesign& design) : View(tree, ViewKind::Picture, design) {}

    [[nodiscard]] Picture Image() const noexcept { return image_; }
    void Image(Picture image)
    {
        image_ = image;
        Changed();
    }

    void UserClicks();

    Slot Click;

protected:
    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override { return CopyOf(std::tie(image_)); }
    void PutOwnValuesBack(const ViewValues& values) override { PutBack(values, std::tie(image_)); }

private:
    Picture image_ = Picture::ImgMax;
};

} // namespace rulemesh
