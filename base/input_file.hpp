#pragma once
// A file's whole text, mapped into memory where that is possible.
#include <ctime>
#include <string>
#include <string_view>

namespace brindle {

// The text lives as long as the object. If somebody cuts the file short meanwhile, the program says so on
// standard error and ends with status 1.
class InputFile {
  public:
    // Opens and maps the file (or reads it, when it is no regular file). On failure ok() is false and errno
    // tells why; a directory fails with EISDIR.
    explicit InputFile(const std::string &name);
    ~InputFile();
    InputFile(const InputFile &) = delete;
    InputFile &operator=(const InputFile &) = delete;

    bool ok() const { return ok_; }
    std::string_view text() const { return text_; }
    std::timespec modified() const { return modified_; }  // when the file was last changed

  private:
    bool map(int fd, std::size_t size);
    bool read_all(int fd);

    bool ok_ = false;
    void *mapping_ = nullptr;
    std::string read_;
    std::string_view text_;
    std::timespec modified_ = {};
};

}  // namespace brindle
