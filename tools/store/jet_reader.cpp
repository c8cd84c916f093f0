#include "jet_reader.h"

#include <mdbtools.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "adapters/store/ascii_fold.h"

namespace orv {
namespace {

constexpr int kPlaceMask = 0x1FFF;
constexpr int kGone = 0x4000;  // deleted, or moved to a page where it is found as well
constexpr std::size_t kLongHead = 12;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;

struct Closer {
    void operator()(MdbHandle* file) const noexcept { mdb_close(file); }
    void operator()(MdbTableDef* table) const noexcept { mdb_free_tabledef(table); }
    void operator()(void* bytes) const noexcept { std::free(bytes); }
};

class Sender {
public:
    explicit Sender(int descriptor) : descriptor_(descriptor) {}
    ~Sender() { flush(); }
    Sender(const Sender&) = delete;
    Sender& operator=(const Sender&) = delete;

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
        const bool isRead = mdb_read_pg(file_, static_cast<unsigned long>(page)) == file_->fmt->pg_size;
        if (!isRead || file_->pg_buf[0] != MDB_PAGE_DATA ||
            mdb_get_int32(file_->pg_buf, 4) != static_cast<long>(table_->entry->table_pg)) {
            sender_.send(JetFrame::Broken);
            return;
        }
        const int rows = mdb_get_int16(file_->pg_buf, file_->fmt->row_count_offset);
        for (int row = 0; row < rows; ++row) {
            sendRow(row);
        }
    }

    void sendRow(int row) {
        int start = 0;
        std::size_t size = 0;
        const bool isFound = mdb_find_row(file_, row, &start, &size) == 0;
        if (isFound && (start & kGone) != 0) {
            return;
        }
        std::vector<MdbField> fields(table_->num_cols);
        if (!isFound || size == 0 || mdb_crack_row(table_, start & kPlaceMask, size, fields.data()) < 0) {
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

    /// The library's own way to a text would turn a character beyond 16 bits into "??".
    void sendLongValue(const MdbField& field, MdbColumn& column) {
        if (static_cast<std::size_t>(field.siz) < kLongHead) {
            sender_.send(field.siz == 0 ? JetFrame::Bytes : JetFrame::Unread);
            return;
        }
        std::array<char, MDB_BIND_SIZE> buffer{};
        memcpy(buffer.data(), field.value, kLongHead);
        const auto told =
            static_cast<std::size_t>(static_cast<std::uint32_t>(mdb_get_int32(field.value, 0)) & kLengthMask);
        column.bind_ptr = buffer.data();
        column.cur_value_start = field.start;
        column.cur_value_len = field.siz;
        std::size_t length = 0;
        const std::unique_ptr<void, Closer> whole(mdb_ole_read_full(file_, &column, &length));
        column.bind_ptr = nullptr;
        if (length < told) {
            sender_.send(JetFrame::Unread);
        } else {
            sender_.send(JetFrame::Bytes, {static_cast<const char*>(whole.get()), told});
        }
    }

    MdbHandle* file_;
    MdbTableDef* table_;
    Sender& sender_;
};

}  // namespace

void sendJetTables(const std::string& path, const std::vector<std::string>& tables, int descriptor) {
    Sender sender(descriptor);
    const std::unique_ptr<MdbHandle, Closer> file(mdb_open(path.c_str(), MDB_NOFLAGS));
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
