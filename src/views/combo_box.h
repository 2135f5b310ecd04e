#pragma once

#include <cstdint>
#include <vector>

#include "views/view.h"

namespace rulemesh {

/// A drop-down list. Entries stay in the order in which they were added and count from 0.
class ComboBox : public View {
public:
    struct Entry {
        rulemesh::Text Text;
        std::int32_t Data = 0;
    };

    static constexpr int None = -1;

    ComboBox(ViewTree& tree, const ViewDesign& design) : View(tree, ViewKind::Combo, design) {}

    [[nodiscard]] const std::vector<Entry>& Entries() const noexcept { return entries_; }

    /// Leaves no selection and runs nothing.
    void Clear();
    void AddItem(rulemesh::Text text, std::int32_t data = 0);

    [[nodiscard]] int ListIndex() const noexcept { return index_; }
    [[nodiscard]] bool HasSelection() const noexcept { return index_ != None; }

    /// Selects an entry; selecting another one than before runs the click handler. Raises InvalidPropertyValue for an
    /// entry that isn't there.
    void ListIndex(int index);

    /// The text of the selected entry, "" without one.
    [[nodiscard]] rulemesh::Text Text() const { return HasSelection() ? Selected().Text : rulemesh::Text(); }

    /// The data of the selected entry. Raises ObjectVariableNotSet without one.
    [[nodiscard]] std::int32_t ItemData() const { return Selected().Data; }

    /// The user picks an entry; picking the one that is selected already runs the click handler too.
    void UserChooses(int index);

    Slot Click;

protected:
    [[nodiscard]] std::unique_ptr<ViewValues> CopyOwnValues() const override
    {
        return CopyOf(std::tie(entries_, index_), entries_.size() * sizeof(Entry));
    }
    void PutOwnValuesBack(const ViewValues& values) override { PutBack(values, std::tie(entries_, index_)); }

private:
    [[nodiscard]] const Entry& Selected() const;

    std::vector<Entry> entries_;
    int index_ = None;
};

} // namespace rulemesh
