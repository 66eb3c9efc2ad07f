// SPDX-License-Identifier: MIT
// Vietnamese words of vndesk-convert, in the order of Message.
#include "convert/texts_tables.h"

namespace vndesk::convert {

const wchar_t* const kVietnamese[kMessages] = {
    L"Thiếu {0}.",
    // what prevents it
    L"Không mở được cơ sở dữ liệu. {0}", L"Không đọc được bảng {0}. {1}",
    L"Bảng {0} không có cột {1}.", L"Cột {1} của bảng {0} không chứa văn bản.",
    L"Cột {1} của bảng {0} không chứa được Unicode. Trước hết hãy đổi sang nvarchar, nchar hoặc "
    L"ntext.",
    L"Cơ sở dữ liệu không cho biết khoá chính của bảng {0}. Hãy nêu các cột phân biệt các dòng: "
    L"--key A,B",
    L"Bảng {0} thuộc loại {1}, không huỷ bỏ thay đổi được. Trước hết hãy đổi sang loại có giao "
    L"dịch, "
    L"chẳng hạn InnoDB.",
    L"Không đọc được các dòng của bảng {0}. {1}", L"Không ghi được báo cáo {0}. {1}",
    // rows
    L"Không ghi được dòng {0}. {1}",
    L"Dòng {0} không còn như lúc đọc. Có người khác đang dùng cơ sở dữ liệu.",
    L"{0} không phân biệt được các dòng của bảng: có nhiều hơn một dòng.",
    L"Cơ sở dữ liệu không giữ được các chữ của dòng {0} ở cột {1}.", L"Không có gì bị thay đổi.",
    L"Kết nối đứt trước khi có câu trả lời cuối: hoặc đã chuyển tất cả, hoặc chưa chuyển gì. Hãy "
    L"chạy lại chương trình.",
    L"Việc kết thúc bị từ chối. {0}",
    // numbers
    L"đã đọc {0} dòng", L"đã ghi {0} trên {1} dòng",
    L"{0}: {1} cần chuyển, {2} đã là Unicode, {3} giống nhau ở cả hai mã, {4} không chắc",
    L"Không chắc nên để nguyên: {0}.", L"Danh sách ở {0}.", L"Dùng --report TỆP để có danh sách.",
    L"Đã chuyển {0} dòng.", L"Chạy thử: sẽ chuyển {0} dòng. Không có gì bị thay đổi.",
    L"Không có gì cần chuyển.",
    // files
    L"Không đọc được tệp {0}. {1}", L"Không ghi được tệp {0}. {1}", L"Tệp {0} đã là Unicode.",
    L"Không nhận ra mã của tệp {0} ({1}).", L"Đã chuyển {0} thành {1}.",
    L"Chạy thử: sẽ chuyển {0} thành {1}. Chưa ghi gì.",
    // usage
    L"vndesk-convert --connect CHUỖI --table BẢNG --columns A,B --from tcvn3|vni|cp1258\n"
    L"               [--key A,B] [--dry-run] [--report TỆP] [--en | --fr | --vi]\n"
    L"vndesk-convert --in TỆP --out TỆP --from tcvn3|vni|cp1258 [--bom] [--dry-run]\n"
    L"Chuyển các cột của cơ sở dữ liệu cũ, hoặc một tệp văn bản, sang Unicode.\n"
    L"\n"
    L"  --connect CHUỖI   chuỗi kết nối, đặt trong dấu nháy kép; - đọc chuỗi từ đầu vào chuẩn.\n"
    L"                    Không bao giờ in tên và mật khẩu.\n"
    L"  --table BẢNG      tên bảng\n"
    L"  --columns A,B     các cột cần chuyển; --column TÊN nhận một cột có dấu phẩy trong tên\n"
    L"  --from MÃ         mã hiện nay: tcvn3 (phông .Vn), vni (phông VNI), cp1258\n"
    L"  --key A,B         các cột phân biệt các dòng, thay cho khoá chính\n"
    L"  --dry-run         không thay đổi gì, cho biết sẽ làm gì\n"
    L"  --report TỆP      ghi danh sách các giá trị không chắc, khi chạy thử cả các giá trị sẽ "
    L"chuyển: CSV mã UTF-8\n"
    L"  --in, --out TỆP   tệp văn bản, và tệp UTF-8 được tạo ra\n"
    L"  --bom             có dấu của UTF-8 ở đầu tệp\n"
    L"  --en, --fr, --vi  ngôn ngữ; nếu không chọn thì theo ngôn ngữ của người dùng\n"
    L"  --help            in hướng dẫn này\n"
    L"  --version         in phiên bản\n"
    L"\n"
    L"Chỉ chuyển những gì chắc chắn ở mã đó, chuyển tất cả hoặc không chuyển gì.\n"
    L"Mã thoát: 0 đã xong, 1 đã xong và có giá trị không chắc, 2 có lỗi nên không có gì bị thay "
    L"đổi, 3 sai tuỳ chọn,\n"
    L"4 không biết đã xong hay chưa: hãy chạy lại.\n"};

} // namespace vndesk::convert
