#include "base/text_parts.hpp"

#include <algorithm>
#include <condition_variable>
#include <future>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace brindle {
namespace {

// Who makes which part, and whose turn it is to write.
class Turns {
  public:
    Turns(TextSink &sink, int nr_of_parts) : sink_(sink), nr_of_parts_(nr_of_parts) {}

    // The next part that nobody makes yet; none: nothing is left to do.
    std::optional<int> take() {
        const std::lock_guard lock(mutex_);
        if (!ok_ || taken_ == nr_of_parts_) return {};
        return taken_++;
    }
    bool write(int part, std::string_view piece) {
        if (!wait_for(part)) return false;
        if (sink_.write(piece)) return true;
        const std::lock_guard lock(mutex_);
        return ok_ = false;
    }
    // Lets the next part have its turn, once this part has had its own.
    void end(int part) {
        wait_for(part);
        const std::lock_guard lock(mutex_);
        ++turn_;
        turn_has_come_.notify_all();
    }
    bool ok() const { return ok_; }

  private:
    // Returns when all parts before this one are written; false: the sink has failed.
    bool wait_for(int part) {
        std::unique_lock lock(mutex_);
        turn_has_come_.wait(lock, [&] { return turn_ == part; });
        return ok_;
    }

    std::mutex mutex_;
    std::condition_variable turn_has_come_;
    TextSink &sink_;
    const int nr_of_parts_;
    int taken_ = 0;
    int turn_ = 0;
    bool ok_ = true;
};

// What one thread does: makes parts, and writes each when its turn has come.
class Worker : public TextSink {
  public:
    explicit Worker(Turns &turns) : turns_(turns), out_(*this) {}

    // Makes the next part; false: nothing is left to do.
    bool make_part(const PartWriter &write_part) {
        const std::optional<int> part = turns_.take();
        if (!part) return false;
        part_ = *part;
        const EndOfTurn end{turns_, part_};
        write_part(part_, out_);
        out_.flush();
        return true;
    }
    bool write(std::string_view piece) override { return turns_.write(part_, piece); }

  private:
    struct EndOfTurn {
        ~EndOfTurn() { turns.end(part); }
        Turns &turns;
        int part;
    };

    Turns &turns_;
    TextBuffer out_;
    int part_ = 0;
};

constexpr unsigned most_threads = 4;

}  // namespace

bool write_parts(TextSink &sink, int nr_of_parts, const PartWriter &write_part) {
    Turns turns(sink, nr_of_parts);
    const auto work = [&] {
        Worker worker(turns);
        while (worker.make_part(write_part)) {
        }
    };
    const int threads = static_cast<int>(std::min(std::thread::hardware_concurrency(), most_threads));
    std::vector<std::future<void>> others;
    for (int i = 1; i < std::min(threads, nr_of_parts); ++i) others.push_back(std::async(work));
    work();
    for (auto &other : others) other.get();
    return turns.ok();
}

}  // namespace brindle
