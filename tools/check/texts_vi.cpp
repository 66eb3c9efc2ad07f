// SPDX-License-Identifier: MIT
// Vietnamese words of vndesk-check, in the order of Id.
#include "check/texts_tables.h"

namespace vndesk::check {

const Words kVietnamese[kIdCount] = {
    // system
    {L"Chương trình kiểm tra này là {0} bit, chạy trên {1} ({2} bit). Kết quả đúng cho các chương "
     L"trình {0} bit.",
     L"", L""},
    {L"Đang chạy trong Wine {0}.",
     L"Cơ sở dữ liệu được truy cập qua trình điều khiển ODBC của máy chạy Wine.",
     L"Không cần làm gì nếu đó là chủ ý."},
    {L"Bảng mã ANSI là {0}.", L"", L""},
    {L"Bảng mã ANSI là UTF-8.",
     L"Mật khẩu có chữ mang dấu sẽ cho mã số khác với mã số đã lưu trong cơ sở dữ liệu.",
     L"Tắt mục \"Use Unicode UTF-8 for worldwide language support\" trong Region, thẻ "
     L"Administrative."},
    // library
    {L"VnDesk đã được đăng ký: {0} ({1} bit, phiên bản {2}), trong {3}.", L"", L""},
    {L"VnDesk chưa được đăng ký cho các chương trình {0} bit.",
     L"Không chương trình {0} bit nào tạo được các lớp của thư viện.",
     L"Chạy với quyền quản trị: regsvr32 \"...\\vndesk.dll\", dùng tệp DLL {0} bit."},
    {L"VnDesk chỉ được đăng ký cho các chương trình {0} bit: {1}.",
     L"Chương trình của kiến trúc còn lại không tạo được các lớp của thư viện.",
     L"Đăng ký thêm tệp DLL của kiến trúc còn lại; có thể đăng ký cả hai cùng lúc."},
    {L"Không tìm thấy tệp đã đăng ký: {0}", L"Tệp đã bị chuyển đi hoặc bị xoá sau khi đăng ký.",
     L"Đặt tệp về chỗ cũ, hoặc đăng ký vndesk.dll ở chỗ mới."},
    {L"Tệp đã đăng ký dành cho các chương trình {1} bit: {0}",
     L"Chương trình {2} bit không nạp được tệp này.",
     L"Đăng ký tệp vndesk.dll {2} bit bằng regsvr32 của cùng kiến trúc."},
    {L"Tệp đã đăng ký không phải là thư viện chương trình: {0}",
     L"Tệp bị hỏng, rỗng hoặc không được phép đọc.",
     L"Chép lại vndesk.dll vào đó, hoặc sửa quyền của tệp."},
    {L"Thư viện đã đăng ký có phiên bản {0}, chương trình kiểm tra có phiên bản {1}.",
     L"Thư viện và chương trình kiểm tra thuộc hai gói khác nhau.",
     L"Cài trọn một gói rồi đăng ký lại."},
    {L"Các lớp được đăng ký từ nhiều tệp: {0}",
     L"Một chương trình có thể nhận các lớp của nhiều phiên bản cùng lúc.",
     L"Huỷ đăng ký các bản không dùng (regsvr32 /u), rồi đăng ký bản cần dùng."},
    {L"Đăng ký của người dùng này che đăng ký của máy: {0} thay cho {1}.",
     L"Người dùng khác, và chương trình chạy với quyền quản trị, nhận tệp kia.",
     L"Nếu không muốn vậy: regsvr32 /u /n /i:user vndesk.dll"},
    {L"Đăng ký của người dùng này không có hiệu lực: {0}",
     L"Wine, và Windows đối với chương trình chạy với quyền quản trị, chỉ đọc đăng ký của máy.",
     L"Đăng ký cho cả máy: regsvr32 vndesk.dll, với quyền quản trị."},
    {L"Lớp {0} chưa được đăng ký.", L"Đăng ký cũ hơn thư viện hoặc đã bị hỏng.",
     L"Đăng ký lại vndesk.dll."},
    {L"Tên {0} không dẫn đến lớp của nó: {1}",
     L"Chương trình tạo lớp theo tên sẽ gặp lỗi hoặc nhận lớp khác.", L"Đăng ký lại vndesk.dll."},
    {L"Lớp {0} có kiểu luồng \"{1}\" thay vì \"Apartment\".",
     L"Đối tượng của lớp sẽ bị dùng từ sai luồng.", L"Đăng ký lại vndesk.dll."},
    {L"Không tạo được lớp {0}: {1}", L"Các chương trình cũng gặp lỗi này.",
     L"Làm theo thông báo lỗi; thường là tệp không được phép đọc hoặc bị phần mềm bảo mật chặn."},
    {L"Tạo được cả {0} lớp.", L"", L""},
    // type library
    {L"Thư viện kiểu đã được đăng ký: {0}", L"", L""},
    {L"Thư viện kiểu chưa được đăng ký cho các chương trình {0} bit.",
     L"Visual Basic và các chương trình tham chiếu đến \"VnDesk\" không chạy hoặc không dịch được; "
     L"lời gọi giữa các luồng bị lỗi.",
     L"Đăng ký lại vndesk.dll."},
    {L"Không tìm thấy tệp của thư viện kiểu: {0}",
     L"Tệp đã bị chuyển đi hoặc bị xoá sau khi đăng ký.",
     L"Đặt tệp về chỗ cũ, hoặc đăng ký vndesk.dll ở chỗ mới."},
    {L"Không nạp được thư viện kiểu: {0}: {1}", L"Tệp bị hỏng hoặc là một tệp khác.",
     L"Chép lại vndesk.dll vào đó rồi đăng ký lại."},
    {L"Thư viện kiểu được đăng ký từ tệp khác với tệp của các lớp: {0}",
     L"Chương trình có thể được dịch với phiên bản khác với phiên bản khi chạy.",
     L"Đăng ký lại tệp vndesk.dll cần dùng."},
    // ADO
    {L"Có ADO {0}: {1}", L"", L""},
    {L"Không dùng được ADO: {0}: {1}",
     L"Không biểu mẫu nào của thư viện truy cập được cơ sở dữ liệu.",
     L"Trên Windows, sửa hệ thống (sfc /scannow). Trong Wine, đăng ký adobridge.dll."},
    {L"adobridge.dll (phiên bản {0}) làm nhiệm vụ của ADO: {1}", L"", L""},
    {L"ADO là của chính Wine: {0}",
     L"ADO này không đọc được tập bản ghi; các biểu mẫu mở ra không có dữ liệu.",
     L"Chạy: wine regsvr32 /s adobridge.dll, dùng tệp DLL {1} bit."},
    {L"Trình cung cấp OLE DB cho các chương trình {0} bit: {1}", L"", L""},
    {L"Trình cung cấp {0} đã được đăng ký nhưng không dùng được: {1}",
     L"Chuỗi kết nối nêu tên nó sẽ bị lỗi.", L"Sửa hoặc cài lại gói chứa trình cung cấp đó."},
    {L"Các chương trình {0} bit không có trình cung cấp cho cơ sở dữ liệu Jet (.mdb).",
     L"Chuỗi kết nối có Microsoft.Jet.OLEDB hoặc Microsoft.ACE.OLEDB sẽ bị lỗi. "
     L"Jet chỉ có cho các chương trình 32 bit.",
     L"Nếu cần: dùng chương trình 32 bit, hoặc cài Access Database Engine cùng kiến trúc."},
    {L"Các chương trình {0} bit không có trình cung cấp cho SQL Server.",
     L"Chuỗi kết nối có SQLOLEDB hoặc MSOLEDBSQL sẽ bị lỗi.",
     L"Nếu cần: cài Microsoft OLE DB Driver for SQL Server."},
    {L"Các chương trình {0} bit không có trình cung cấp OLE DB cho cơ sở dữ liệu nào.",
     L"Không biểu mẫu nào của thư viện truy cập được cơ sở dữ liệu.",
     L"Cài trình cung cấp mà chuỗi kết nối của bạn nêu tên."},
    {L"Trình điều khiển ODBC cho các chương trình {0} bit: {1}", L"", L""},
    {L"Không có trình điều khiển ODBC cho các chương trình {0} bit.",
     L"Không mở được nguồn dữ liệu (DSN); trong Wine không mở được cơ sở dữ liệu nào.",
     L"Cài trình điều khiển cùng kiến trúc; với Wine thì cài trên máy chạy Wine, ví dụ "
     L"libsqliteodbc."},
    // controls
    {L"Thư viện điều khiển chung phiên bản 6 có hiệu lực: {0}", L"", L""},
    {L"Không có thư viện điều khiển chung phiên bản 6: {0}",
     L"Biểu mẫu vẫn chạy nhưng có giao diện cũ, và thiếu một số lời nhắc trong ô nhập.",
     L"Trên Windows, sửa hệ thống (sfc /scannow); trong Wine, cập nhật prefix (wineboot -u)."},
    {L"Kiểu hiển thị của Windows đang tắt.", L"Biểu mẫu có giao diện cũ.",
     L"Không cần làm gì nếu đó là chủ ý."},
    // fonts
    {L"Phông \"{0}\": hiển thị bằng \"{1}\", có đủ chữ tiếng Việt.", L"", L""},
    {L"Phông \"{0}\" chưa được cài, \"{1}\" được dùng thay.",
     L"Chữ có thể rộng hoặc hẹp hơn thiết kế.", L"Cài phông đó nếu biểu mẫu hiển thị không đẹp."},
    {L"Phông \"{0}\": hiển thị bằng \"{1}\", thiếu {2} trong {3} chữ tiếng Việt: {4}",
     L"Chữ hiện thành ô vuông hoặc bằng phông khác.",
     L"Cài phông có chữ tiếng Việt, ví dụ Arial hoặc Liberation Sans 2."},
};

const Frame kVietnameseFrame = {
    L"Kiểm tra VnDesk {0}",
    {L"tốt", L"ghi chú", L"cảnh báo", L"lỗi"},
    L"Cần làm: ",
    {L"VnDesk dùng được.", L"VnDesk dùng được.", L"VnDesk dùng được, có cảnh báo.",
     L"VnDesk không dùng được."},
    L"vndesk-check [--json] [--en | --vi] [--help] [--version]\n"
    L"Cho biết các chương trình cùng kiến trúc với chương trình kiểm tra này có dùng được VnDesk "
    L"không, và sai ở đâu.\n"
    L"\n"
    L"  --json     in JSON mã UTF-8 cho chương trình khác\n"
    L"  --en       bằng tiếng Anh\n"
    L"  --vi       bằng tiếng Việt; nếu không chọn thì theo ngôn ngữ của người dùng\n"
    L"  --help     in hướng dẫn này\n"
    L"  --version  in phiên bản\n"
    L"\n"
    L"Mã thoát: 0 dùng được, 1 dùng được nhưng có cảnh báo, 2 không dùng được, 3 không kiểm tra "
    L"được.\n"};

} // namespace vndesk::check
