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
    // the database
    {L"Mở được cơ sở dữ liệu: {0}", L"", L""},
    {L"Không tìm thấy máy chủ của cơ sở dữ liệu, hoặc máy chủ không trả lời: {0}",
     L"Không biểu mẫu nào truy cập được cơ sở dữ liệu.",
     L"Xem lại tên máy, tên instance và cổng trong chuỗi kết nối; xem máy chủ có đang chạy, tường "
     L"lửa có chặn không."},
    {L"Máy chủ từ chối tên hoặc mật khẩu: {0}", L"Không biểu mẫu nào truy cập được cơ sở dữ liệu.",
     L"Xem lại tên và mật khẩu trong chuỗi kết nối; mật khẩu có ; hoặc dấu nháy phải được đặt "
     L"trong dấu nháy hoặc ngoặc nhọn."},
    {L"Thiếu trình cung cấp hoặc trình điều khiển nêu trong chuỗi kết nối cho các chương trình {1} "
     L"bit: {0}",
     L"Không biểu mẫu nào của chương trình {1} bit truy cập được cơ sở dữ liệu.",
     L"Cài bản cùng kiến trúc; nguồn dữ liệu (DSN) cũng phải được tạo cho kiến trúc này."},
    {L"Chứng chỉ của máy chủ không được tin cậy: {0}",
     L"Không biểu mẫu nào truy cập được cơ sở dữ liệu.",
     L"Cài chứng chỉ của nơi cấp vào máy này, và kết nối bằng đúng tên ghi trong chứng chỉ."},
    {L"Không tìm thấy tệp cơ sở dữ liệu: {0}", L"Không biểu mẫu nào truy cập được cơ sở dữ liệu.",
     L"Xem lại đường dẫn trong chuỗi kết nối, và quyền đọc thư mục của người dùng này."},
    {L"Chuỗi kết nối nêu Jet 4.0, thứ mà chương trình 64 bit không có: {0}",
     L"Không biểu mẫu nào của chương trình 64 bit truy cập được cơ sở dữ liệu.",
     L"Dùng chương trình 32 bit, hoặc dùng ACE: Access Database Engine bản 64 bit, và nêu tên nó "
     L"trong chuỗi kết nối."},
    {L"Máy chủ không có cơ sở dữ liệu này, hoặc tài khoản không được mở nó: {0}",
     L"Không biểu mẫu nào truy cập được cơ sở dữ liệu.",
     L"Xem lại tên cơ sở dữ liệu trong chuỗi kết nối, và quyền của tài khoản."},
    {L"Máy chủ đang bận hoặc chưa sẵn sàng: {0}",
     L"Lúc này không biểu mẫu nào truy cập được cơ sở dữ liệu.",
     L"Thử lại; nếu vẫn vậy thì xem máy chủ: quá nhiều kết nối, hoặc đang phục hồi."},
    {L"Không mở được cơ sở dữ liệu: {0}", L"Không biểu mẫu nào truy cập được nó.",
     L"Làm theo thông báo của trình cung cấp."},
    {L"{0} không hiểu tên đặt trong ngoặc vuông.",
     L"Câu lệnh của chương trình không đặt Dialect sẽ bị lỗi.",
     L"Đặt Dialect của clsSettings theo máy chủ."},
    {L"Các bảng đọc được: {0}", L"", L""},
    {L"Không đọc được bảng {0}: {1}", L"Thiếu bảng này thì không đăng nhập và không quản trị được.",
     L"Tạo bảng bằng các tập lệnh trong schema, hoặc cho tài khoản trong chuỗi kết nối quyền đọc."},
    {L"Không đọc được bảng {0}: {1}", L"Hộp tìm kiếm không có gì để tìm theo.",
     L"Nếu chương trình có tìm kiếm: tạo bảng bằng các tập lệnh trong schema, hoặc cho tài khoản "
     L"quyền đọc."},
    {L"Không đọc được bảng {0}: {1}", L"Không biểu mẫu nào dùng bảng này.",
     L"Không cần làm gì, trừ khi chương trình giữ thiết lập của mình ở đó."},
    {L"Bảng {0} không có cột {1}.", L"Các câu lệnh nêu tên cột này sẽ bị lỗi.",
     L"Thêm cột như trong các tập lệnh ở schema."},
    {L"Cột {1} của bảng {0} không ở vị trí {2}.",
     L"Thư viện đọc các cột này theo vị trí: người dùng nhận sai mã số hoặc sai quyền.",
     L"Tạo lại bảng với các cột theo thứ tự trong các tập lệnh ở schema."},
    {L"Bảng Groups có {0} cột quyền, bảng Menu có {1} dòng.",
     L"Không đọc và không ghi được quyền của các thanh menu cuối.",
     L"Thêm cột số nguyên vào cuối bảng Groups, mỗi dòng của Menu một cột."},
    {L"Bảng Menu không có dòng nào.", L"Biểu mẫu phân quyền không có gì để phân.",
     L"Nếu chương trình có phân quyền: ghi cho mỗi thanh menu một dòng."},
    {L"Thanh menu {0} có {1} lệnh trong SubMenu, nhiều nhất là 31.",
     L"Biểu mẫu phân quyền sẽ báo lỗi với thanh này.", L"Tách thanh này thành hai dòng của Menu."},
    {L"Không có người sử dụng mang mã 3.",
     L"Đó là quản trị chính, người không ai xoá được và mở khoá cho người khác.",
     L"Thêm người sử dụng mang mã này như các tập lệnh ở schema."},
    {L"Không có nhóm mang mã {0}.",
     L"Thư viện không cho xoá nhóm 1 và nhóm 8, và các chương trình dựa vào hai nhóm này.",
     L"Thêm nhóm mang mã này như các tập lệnh ở schema."},
    {L"Bảng LstFld có trường kiểu {0}, bảng Operator không có dòng nào cho kiểu này.",
     L"Trong hộp tìm kiếm không so sánh được với các trường đó.",
     L"Thêm các dòng của kiểu này vào bảng Operator."},
    {L"Bảng LstFld có trường kiểu 8, tức ngày.",
     L"Result ghi ngày dạng #03/05/2021#, SQL Server không hiểu.",
     L"Dùng ParameterizedResult hoặc CreateCommand của clsSearch, hoặc đặt Dialect."},
    {L"Các bảng của 1.1 đọc được: {0}", L"", L""},
    {L"Chưa có bảng {0} của 1.1.", L"Chương trình cần đến nó sẽ gặp lỗi 0x80040210.",
     L"Nếu chương trình cần: chạy schema/upgrade/{1}.sql trên cơ sở dữ liệu."},
};

const Frame kVietnameseFrame = {
    L"Kiểm tra VnDesk {0}",
    {L"tốt", L"ghi chú", L"cảnh báo", L"lỗi"},
    L"Cần làm: ",
    {L"VnDesk dùng được.", L"VnDesk dùng được.", L"VnDesk dùng được, có cảnh báo.",
     L"VnDesk không dùng được."},
    L"vndesk-check [--json] [--en | --fr | --vi] [--connect CHUỖI] [--help] [--version]\n"
    L"Cho biết các chương trình cùng kiến trúc với chương trình kiểm tra này có dùng được VnDesk "
    L"không, và sai ở đâu.\n"
    L"\n"
    L"  --json           in JSON mã UTF-8 cho chương trình khác\n"
    L"  --en             bằng tiếng Anh\n"
    L"  --fr             bằng tiếng Pháp\n"
    L"  --vi             bằng tiếng Việt; nếu không chọn thì theo ngôn ngữ của người dùng\n"
    L"  --connect CHUỖI  xem cả cơ sở dữ liệu của chương trình; chuỗi kết nối đặt trong dấu "
    L"nháy kép,\n"
    L"                   - đọc chuỗi từ đầu vào chuẩn. Không bao giờ in tên và mật khẩu.\n"
    L"  --help           in hướng dẫn này\n"
    L"  --version        in phiên bản\n"
    L"\n"
    L"Mã thoát: 0 dùng được, 1 dùng được nhưng có cảnh báo, 2 không dùng được, 3 không kiểm tra "
    L"được.\n"};

} // namespace vndesk::check
