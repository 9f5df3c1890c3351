#include "common/PictureStore.h"

namespace corvanna {

namespace {
const char* const kDesigns[] = {"palm", "magic", "night", "hot"};
const char* const kStacks[] = {"full", "back", "half"};
const char* const kStackKeys[] = {"FULL", "BACK", "HALF"};
}  // namespace

PictureStore::PictureStore() {
    for (int d = 0; d < 4; ++d)
        for (int k = 0; k < 3; ++k)
            pictures_[1 + d * 3 + k] = std::string(kDesigns[d]) + "-" + kStacks[k];
    pictures_[13] = "EMPTY";
    static const char suits[] = {'S', 'H', 'C', 'D'};
    for (int i = 0; i < 52; ++i)
        pictures_[14 + i] = std::to_string(i % 13 + 1) + suits[i / 13];
    pictures_[66] = "POINTER";
    pictures_[67] = "Empty";
    pictures_[68] = "TFAL";
    keys_ = pictures_;
    for (int s = 1; s <= 12; ++s)
        keys_[s].clear();
    for (int k = 0; k < 3; ++k)
        keys_[1 + k] = kStackKeys[k];
}

const std::string& PictureStore::pictureOfSlot(int slot) const {
    static const std::string none;
    return slot >= 1 && slot <= kSlots ? pictures_[slot] : none;
}

const std::string& PictureStore::keyOfSlot(int slot) const {
    static const std::string none;
    return slot >= 1 && slot <= kSlots ? keys_[slot] : none;
}

void PictureStore::setKey(int slot, const std::string& key) {
    if (slot >= 1 && slot <= kSlots)
        keys_[slot] = key;
}

int PictureStore::slotOf(const std::string& key) const {
    if (key.empty())
        return 0;
    for (int s = 1; s <= kSlots; ++s)
        if (keys_[s] == key)
            return s;
    return 0;
}

std::string PictureStore::picture(const std::string& key) const {
    const int s = slotOf(key);
    return s ? pictures_[s] : std::string();
}

int PictureStore::designOnShow() const {
    const int slot = slotOf("BACK");  // the middle slot of its design's three
    return slot >= 1 && slot <= 12 ? (slot - 1) / 3 + 1 : 0;
}

void PictureStore::selectDesign(int design) {
    if (design < 1 || design > 4)
        return;
    for (int s = 1; s <= 12; ++s)
        keys_[s].clear();
    for (int k = 0; k < 3; ++k)
        keys_[(design - 1) * 3 + 1 + k] = kStackKeys[k];
}

}  // namespace corvanna
