#pragma once
// A list of callbacks that may unsubscribe, or be added, while they are being told.

#include <algorithm>
#include <functional>
#include <vector>

namespace corvanna {

template <class... Args>
class Observers {
public:
    using Fn = std::function<void(Args...)>;
    int add(Fn fn) {
        list_.push_back({next_, std::move(fn)});
        return next_++;
    }
    void remove(int id) {
        std::erase_if(list_, [id](const Entry& e) { return e.id == id; });
    }
    void tell(Args... args) {
        if (list_.empty())
            return;
        auto copy = list_;
        for (auto& e : copy)
            e.fn(args...);
    }

private:
    struct Entry {
        int id;
        Fn fn;
    };
    std::vector<Entry> list_;
    int next_ = 1;
};

}  // namespace corvanna
