#include "jet_reader.h"

#include <mdbtools.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "platform/ascii.h"
#include "platform/scope.h"

namespace orv {
namespace {

constexpr int kPlaceMask = 0x1FFF;
// A row that no longer fits its page is replaced by a pointer with the first mark. The moved row has the second mark
// and is read only through its pointer; without one it is a leftover. A deleted row has both marks.
constexpr int kElsewhere = 0x4000;
constexpr int kFromElsewhere = 0x8000;
constexpr std::size_t kPointerSize = 4;
constexpr int kMostMoves = 16;
constexpr std::size_t kLongHead = 12;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;

struct Closer {
    void operator()(MdbHandle* file) const noexcept { mdb_close(file); }
    void operator()(MdbTableDef* table) const noexcept { mdb_free_tabledef(table); }
    void operator()(void* bytes) const noexcept { std::free(bytes); }
};

class Sender : NonCopyable {
public:
    explicit Sender(int descriptor) : descriptor_(descriptor) {}
    ~Sender() { flush(); }

    void send(JetFrame kind, std::string_view bytes = {}) {
        const auto length = static_cast<std::uint32_t>(bytes.size());
        waiting_ += static_cast<char>(kind);
        waiting_.append(reinterpret_cast<const char*>(&length), sizeof length).append(bytes);
        if (waiting_.size() > 65536) {
            flush();
        }
    }

private:
    void flush() {
        std::string_view rest = waiting_;
        while (!rest.empty()) {
            const ssize_t written = ::write(descriptor_, rest.data(), rest.size());
            if (written < 0 && errno != EINTR) {
                ::_exit(1);
            }
            rest.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
        waiting_.clear();
    }

    int descriptor_;
    std::string waiting_;
};

class TableReader {
public:
    TableReader(MdbHandle* file, MdbTableDef* table, Sender& sender) : file_(file), table_(table), sender_(sender) {}

    void send() {
        sender_.send(JetFrame::Table, table_->entry->object_name);
        sender_.send(JetFrame::Rows, std::to_string(table_->num_rows));
        for (unsigned i = 0; i < table_->num_cols; ++i) {
            sender_.send(JetFrame::Column, static_cast<char>(column(i)->col_type) + std::string(column(i)->name));
        }
        std::int32_t page = 0;
        while ((page = mdb_map_find_next(file_, table_->usage_map, static_cast<unsigned>(table_->map_sz),
                                         static_cast<std::uint32_t>(page))) > 0) {
            sendPage(page);
        }
        if (page < 0) {
            sender_.send(JetFrame::Broken);
        }
    }

private:
    MdbColumn* column(unsigned place) const {
        return static_cast<MdbColumn*>(g_ptr_array_index(table_->columns, place));
    }

    void sendPage(std::int32_t page) {
        if (!openPage(page)) {
            return;
        }
        std::vector<std::uint32_t> moved;
        for (int number = 0; number < rowsOfPage(); ++number) {
            const Row row = find(number);
            if (row.marks == kElsewhere) {
                moved.push_back(pointerIn(row));
            } else if (row.marks == 0) {
                sendRow(row);
            }
        }
        for (const std::uint32_t place : moved) {
            sendMoved(place);
        }
    }

    /// Reads the page into the library's buffer. If it is not a page with rows of this table, reports it as broken.
    bool openPage(std::int32_t page) {
        const bool isRead = mdb_read_pg(file_, static_cast<unsigned long>(page)) == file_->fmt->pg_size;
        const bool isOurs = isRead && file_->pg_buf[0] == MDB_PAGE_DATA &&
                            mdb_get_int32(file_->pg_buf, 4) == static_cast<long>(table_->entry->table_pg);
        if (!isOurs) {
            sender_.send(JetFrame::Broken);
        }
        return isOurs;
    }

    struct Row {
        int start = 0;
        std::size_t size = 0;  // 0: not found
        int marks = 0;
    };

    int rowsOfPage() const { return mdb_get_int16(file_->pg_buf, file_->fmt->row_count_offset); }

    Row find(int number) const {
        int start = 0;
        std::size_t size = 0;
        if (number >= rowsOfPage() || mdb_find_row(file_, number, &start, &size) != 0) {
            return {};
        }
        return {start & kPlaceMask, size, start & (kElsewhere | kFromElsewhere)};
    }

    /// Returns a page number with a row in the last byte, or 0, which is not a data page.
    std::uint32_t pointerIn(const Row& row) const {
        return row.size < kPointerSize ? 0 : static_cast<std::uint32_t>(mdb_get_int32(file_->pg_buf, row.start));
    }

    void sendMoved(std::uint32_t place) {
        for (int moves = 0; moves < kMostMoves; ++moves) {
            if (!openPage(static_cast<std::int32_t>(place >> 8U))) {
                return;
            }
            const Row row = find(static_cast<int>(place & 0xFFU));
            if ((row.marks & kElsewhere) == 0) {
                sendRow(row);
                return;
            }
            place = pointerIn(row);
        }
        sender_.send(JetFrame::Broken);
    }

    void sendRow(const Row& row) {
        std::vector<MdbField> fields(table_->num_cols);
        if (row.size == 0 || mdb_crack_row(table_, row.start, row.size, fields.data()) < 0) {
            sender_.send(JetFrame::Broken);
            return;
        }
        sender_.send(JetFrame::Row);
        for (const MdbField& field : fields) {
            sendValue(field, *column(static_cast<unsigned>(field.colnum)));
        }
    }

    void sendValue(const MdbField& field, MdbColumn& column) {
        const auto* bytes = static_cast<const char*>(field.value);
        if (column.col_type == MDB_BOOL) {
            sender_.send(JetFrame::Bytes, std::string(1, field.is_null != 0 ? '\0' : '\1'));
        } else if (field.is_null != 0 || field.siz < 0) {
            sender_.send(JetFrame::Null);
        } else if (column.col_type == MDB_MEMO) {
            sendLongValue(field, column);
        } else {
            sender_.send(JetFrame::Bytes, {bytes, bytes == nullptr ? 0 : static_cast<std::size_t>(field.siz)});
        }
    }

    /// The library's own text function would convert a character beyond 16 bits to "??".
    void sendLongValue(const MdbField& field, MdbColumn& column) {
        if (static_cast<std::size_t>(field.siz) < kLongHead) {
            sender_.send(field.siz == 0 ? JetFrame::Bytes : JetFrame::Unread);
            return;
        }
        std::array<char, MDB_BIND_SIZE> buffer{};
        memcpy(buffer.data(), field.value, kLongHead);
        const auto statedLength =
            static_cast<std::size_t>(static_cast<std::uint32_t>(mdb_get_int32(field.value, 0)) & kLengthMask);
        column.bind_ptr = buffer.data();
        column.cur_value_start = field.start;
        column.cur_value_len = field.siz;
        std::size_t length = 0;
        const std::unique_ptr<void, Closer> whole(mdb_ole_read_full(file_, &column, &length));
        column.bind_ptr = nullptr;
        if (length < statedLength) {
            sender_.send(JetFrame::Unread);
        } else {
            sender_.send(JetFrame::Bytes, {static_cast<const char*>(whole.get()), statedLength});
        }
    }

    MdbHandle* file_;
    MdbTableDef* table_;
    Sender& sender_;
};

}  // namespace

void prepareJetReading() {
    // Converters stay in memory once opened, so these are never closed. The library uses the code page that the file
    // names.
    for (const char* page : {"UCS-2LE", "UTF-16LE", "SHIFT-JIS", "WINDOWS-1252", "ISO-8859-1"}) {
        static_cast<void>(iconv_open("UTF-8", page));
        static_cast<void>(iconv_open(page, "UTF-8"));
    }
}

void sendJetTables(std::span<char> bytes, const std::vector<std::string>& tables, int descriptor) {
    Sender sender(descriptor);
    const std::unique_ptr<MdbHandle, Closer> file(mdb_open_buffer(bytes.data(), bytes.size(), MDB_NOFLAGS));
    if (file == nullptr || mdb_read_catalog(file.get(), MDB_TABLE) == nullptr) {
        sender.send(JetFrame::Refusal, "its list of tables can't be read");
        return;
    }
    sender.send(JetFrame::Version, std::string(1, IS_JET3(file.get()) ? '\3' : '\4'));
    for (unsigned i = 0; i < file->num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(file->catalog, i));
        const auto isMeant = [&](const std::string& name) { return equalWithoutCase(name, entry->object_name); };
        if (std::ranges::none_of(tables, isMeant)) {
            continue;
        }
        const std::unique_ptr<MdbTableDef, Closer> table(mdb_read_table(entry));
        if (table == nullptr || mdb_read_columns(table.get()) == nullptr) {
            sender.send(JetFrame::Refusal, std::string(entry->object_name) + ": its definition can't be read");
            return;
        }
        TableReader(file.get(), table.get(), sender).send();
    }
    sender.send(JetFrame::End);
}

}  // namespace orv
