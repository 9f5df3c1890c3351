#pragma once
// The 68 card pictures in their fixed slots. Each slot has a picture name that
// never changes (what a view draws) and a key that may move to another slot:
// "BACK", "FULL" and "HALF" follow the chosen back design.

#include <array>
#include <string>

namespace corvanna {

class PictureStore {
public:
    static constexpr int kSlots = 68;
    PictureStore();

    // The stable picture of slot 1..68: "palm-full" ... "hot-half", "EMPTY", "1S" ... "13D",
    // "POINTER", "Empty", "TFAL".
    const std::string& pictureOfSlot(int slot) const;
    const std::string& keyOfSlot(int slot) const;
    void setKey(int slot, const std::string& key);
    // The picture a key finds, or the empty text when no slot has it.
    std::string picture(const std::string& key) const;
    int slotOf(const std::string& key) const;  // 0 when none

    // The back design in the picture store's own numbering: 1 Palm Tree, 2 Magic Hands,
    // 3 Night Castle, 4 Hot Cards. Clears slots 1-12 and keys the design's three slots.
    void selectDesign(int design);
    // The design whose back "BACK" finds now, 0 when none has it.
    int designOnShow() const;

private:
    std::array<std::string, kSlots + 1> pictures_;
    std::array<std::string, kSlots + 1> keys_;
};

}  // namespace corvanna
