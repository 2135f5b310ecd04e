#pragma once

#include "views/view_tree.h"

namespace rulemesh {

class Button;
class ComboBox;
class TextBox;

/// A form that stands in front of everything until it is closed. What is on it belongs to its maker.
class ModalForm {
public:
    ViewTree Tree;

    [[nodiscard]] const Text& Caption() const noexcept { return caption_; }
    void Caption(Text caption) { caption_ = std::move(caption); }

    /// The size of the form, in twips.
    [[nodiscard]] int Width() const noexcept { return width_; }
    [[nodiscard]] int Height() const noexcept { return height_; }
    void Size(int width, int height) noexcept
    {
        width_ = width;
        height_ = height;
    }

    /// What the form is for, in a word for programs: "note".
    [[nodiscard]] TextView Mode() const noexcept { return mode_; }

    /// The views in which the form asks, null where it has none: for who answers without seeing it.
    struct Asked {
        TextBox* Box = nullptr;
        ComboBox* Choice = nullptr;
        Button* Accept = nullptr;
        Button* Cancel = nullptr; // without one the form is given up from its frame
    };
    [[nodiscard]] const Asked& Asks() const noexcept { return asked_; }
    void Asks(TextView mode, const Asked& asked) noexcept
    {
        mode_ = mode;
        asked_ = asked;
    }

    [[nodiscard]] bool IsOpen() const noexcept { return open_; }
    void Unload() noexcept { open_ = false; }

    /// The user closes the form from its frame: the query-unload handler is run, then the form closes.
    void UserCloses()
    {
        Run(QueryUnload);
        Unload();
    }

    Slot QueryUnload;

private:
    Text caption_;
    TextView mode_;
    Asked asked_;
    int width_ = 0;
    int height_ = 0;
    bool open_ = true;
};

} // namespace rulemesh
