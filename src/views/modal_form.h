#pragma once

#include "views/view_tree.h"

namespace rulemesh {

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
    int width_ = 0;
    int height_ = 0;
    bool open_ = true;
};

} // namespace rulemesh
