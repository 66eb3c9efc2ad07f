-- SPDX-License-Identifier: MIT
-- Sample database for MariaDB 10.10 or later; run it in an empty database. The collation regards no case, but each letter
-- and each tone: in others Hùng and Hưng, or Hùng and Hung, are one name. On Linux the names of tables have a case.
ALTER DATABASE CHARACTER SET utf8mb4 COLLATE utf8mb4_uca1400_vietnamese_as_ci;

-- Users who may log on. Code stays the first column.
CREATE TABLE `User` (
    `Code` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `Name` VARCHAR(50),
    `Dec` VARCHAR(100),
    `IdGroup` INT,
    `Password` DOUBLE
);
-- Logons look for names, the group manager for the users of a group.
CREATE INDEX `UserName` ON `User` (`Name`);
CREATE INDEX `UserIdGroup` ON `User` (`IdGroup`);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (1, 'Nguyễn Văn Hưng', 'Kế toán trưởng', 2, 1133116);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (2, 'Trần Thị Mai', 'Nhân viên bán hàng', 3, 0);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (3, 'Admin', 'Quản trị chính của chương trình', 1, 1401);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (4, 'Lê Quốc Việt', 'Thủ kho', 5, 1196379);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (5, 'Phạm Thu Hà', 'Kế toán công nợ', 2, 22980);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (7, 'Khách', 'Chỉ được xem báo cáo', 8, 0);
INSERT INTO `User` (`Code`, `Name`, `Dec`, `IdGroup`, `Password`) VALUES (9, 'Đặng Ngọc Sơn', 'Trưởng phòng kinh doanh', 3, 1233967);

-- User groups. P1..P3: one rights mask per row of Menu, in the same order.
CREATE TABLE `Groups` (
    `Code` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `Name` VARCHAR(50),
    `Des` VARCHAR(100),
    `P1` INT,
    `P2` INT,
    `P3` INT
);
INSERT INTO `Groups` (`Code`, `Name`, `Des`, `P1`, `P2`, `P3`) VALUES (1, 'Quản trị', 'Toàn quyền trên chương trình', 15, 63, 31);
INSERT INTO `Groups` (`Code`, `Name`, `Des`, `P1`, `P2`, `P3`) VALUES (2, 'Kế toán', 'Phòng kế toán', 5, 48, 31);
INSERT INTO `Groups` (`Code`, `Name`, `Des`, `P1`, `P2`, `P3`) VALUES (3, 'Bán hàng', 'Phòng kinh doanh', 1, 3, 5);
INSERT INTO `Groups` (`Code`, `Name`, `Des`, `P1`, `P2`, `P3`) VALUES (5, 'Kho', 'Bộ phận kho', 7, 0, 1);
INSERT INTO `Groups` (`Code`, `Name`, `Des`, `P1`, `P2`, `P3`) VALUES (8, 'Khách', 'Chỉ xem báo cáo', 0, 0, 1);

-- Menu bars of the host program.
CREATE TABLE `Menu` (
    `ID` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `Desc` VARCHAR(50)
);
INSERT INTO `Menu` (`ID`, `Desc`) VALUES (1, 'Hệ thống');
INSERT INTO `Menu` (`ID`, `Desc`) VALUES (2, 'Danh mục');
INSERT INTO `Menu` (`ID`, `Desc`) VALUES (3, 'Báo cáo');

-- Commands under each menu bar; bit i of a mask is the i-th command by ID.
CREATE TABLE `SubMenu` (
    `ID` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `IdMenuBar` INT,
    `Desc` VARCHAR(50)
);
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (1, 1, 'Đổi mật khẩu');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (2, 1, 'Người sử dụng');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (3, 1, 'Nhóm người sử dụng');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (4, 1, 'Sao lưu dữ liệu');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (5, 2, 'Khách hàng');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (6, 2, 'Nhà cung cấp');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (7, 2, 'Hàng hoá');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (8, 2, 'Nhóm hàng');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (9, 2, 'Tài khoản');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (10, 2, 'Tỉnh thành');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (11, 3, 'Tồn kho');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (12, 3, 'Nhập xuất tồn');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (13, 3, 'Doanh thu');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (14, 3, 'Công nợ phải thu');
INSERT INTO `SubMenu` (`ID`, `IdMenuBar`, `Desc`) VALUES (15, 3, 'Công nợ phải trả');

-- Named settings. One value is null and one is empty on purpose.
CREATE TABLE `Options` (
    `Section` VARCHAR(50),
    `KeyName` VARCHAR(50),
    `KeyValue` VARCHAR(200),
    `Description` VARCHAR(200)
);
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('CongTy', 'TenCongTy', 'Công ty TNHH Thương mại Hưng Thịnh', 'Tên in trên báo cáo');
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('CongTy', 'DiaChi', '12 Hàng Bài, Hoàn Kiếm, Hà Nội', 'Địa chỉ in trên báo cáo');
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('CongTy', 'MaSoThue', '0100107518', NULL);
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('BaoCao', 'SoDongMoiTrang', '40', 'Số dòng in trên một trang');
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('BaoCao', 'NguoiLap', NULL, 'Người lập biểu, chưa khai báo');
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('BaoCao', 'GhiChuCuoiTrang', '', NULL);
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('HeThong', 'ThuMucSaoLuu', 'C:\\SaoLuu', NULL);
INSERT INTO `Options` (`Section`, `KeyName`, `KeyValue`, `Description`) VALUES ('HeThong', 'NamTaiChinh', '2005', 'Năm tài chính hiện hành');

-- Field catalogue of the search dialog: what may be searched, table by table.
CREATE TABLE `LstFld` (
    `Code` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `InTable` VARCHAR(50),
    `Name` VARCHAR(50),
    `Desc` VARCHAR(100),
    `Type` INT,
    `Relation` VARCHAR(200)
);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (10, 'KhachHang', 'MaKH', 'Mã khách hàng', 10, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (20, 'KhachHang', 'Name', 'Tên khách hàng', 10, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (30, 'KhachHang', 'MaTinh', 'Tỉnh thành', 10, 'TinhThanh');
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (40, 'KhachHang', 'DiaChi', 'Địa chỉ', 11, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (50, 'KhachHang', 'NgayLap', 'Ngày lập thẻ', 8, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (60, 'KhachHang', 'SoDonHang', 'Số đơn hàng', 3, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (70, 'KhachHang', 'CongNo', 'Công nợ', 13, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (80, 'KhachHang', 'KhachSi', 'Khách sỉ (1 có, 0 không)', 1, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (110, 'HangHoa', 'MaHang', 'Mã hàng', 10, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (120, 'HangHoa', 'TenHang', 'Tên hàng', 10, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (130, 'HangHoa', 'MaNhom', 'Nhóm hàng', 10, 'Select MaNhom,TenNhom From NhomHang Where TenNhom');
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (140, 'HangHoa', 'DonVi', 'Đơn vị tính', 10, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (150, 'HangHoa', 'SoLuong', 'Số lượng tồn', 3, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (160, 'HangHoa', 'DonGia', 'Đơn giá', 13, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (170, 'HangHoa', 'NgayNhap', 'Ngày nhập', 8, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (180, 'HangHoa', 'ConBan', 'Còn bán (1 có, 0 không)', 1, NULL);
INSERT INTO `LstFld` (`Code`, `InTable`, `Name`, `Desc`, `Type`, `Relation`) VALUES (190, 'HangHoa', 'MoTa', 'Mô tả', 11, NULL);

-- Comparison operators offered per field type.
CREATE TABLE `Operator` (
    `Code` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `Name` VARCHAR(20),
    `Des` VARCHAR(50),
    `Type` INT
);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (1, '=', 'bằng', 1);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (2, '<>', 'khác', 1);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (3, '=', 'bằng', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (4, '<>', 'khác', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (5, '>', 'lớn hơn', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (6, '>=', 'lớn hơn hoặc bằng', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (7, '<', 'nhỏ hơn', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (8, '<=', 'nhỏ hơn hoặc bằng', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (9, 'IN', 'thuộc danh sách', 3);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (10, '=', 'đúng ngày', 8);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (11, '<>', 'khác ngày', 8);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (12, '>', 'sau ngày', 8);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (13, '>=', 'từ ngày', 8);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (14, '<', 'trước ngày', 8);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (15, '<=', 'đến ngày', 8);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (16, '=', 'bằng', 10);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (17, 'LIKE', 'bắt đầu bằng', 10);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (18, '<>', 'khác', 10);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (19, 'IN', 'thuộc danh sách', 10);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (20, 'LIKE', 'bắt đầu bằng', 11);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (21, '=', 'bằng', 11);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (22, '<>', 'khác', 11);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (23, '=', 'bằng', 13);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (24, '<>', 'khác', 13);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (25, '>', 'lớn hơn', 13);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (26, '>=', 'lớn hơn hoặc bằng', 13);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (27, '<', 'nhỏ hơn', 13);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (28, '<=', 'nhỏ hơn hoặc bằng', 13);
INSERT INTO `Operator` (`Code`, `Name`, `Des`, `Type`) VALUES (29, 'IN', 'thuộc danh sách', 13);

-- Provinces: look-up list of KhachHang.MaTinh (code first, then name).
CREATE TABLE `TinhThanh` (
    `Code` VARCHAR(10) NOT NULL PRIMARY KEY,
    `Name` VARCHAR(50)
);
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('HN', 'Hà Nội');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('HP', 'Hải Phòng');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('QN', 'Quảng Ninh');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('NA', 'Nghệ An');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('TTH', 'Thừa Thiên Huế');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('DN', 'Đà Nẵng');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('KH', 'Khánh Hoà');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('HCM', 'TP Hồ Chí Minh');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('CT', 'Cần Thơ');
INSERT INTO `TinhThanh` (`Code`, `Name`) VALUES ('AG', 'An Giang');

-- Kinds of goods: look-up list of HangHoa.MaNhom.
CREATE TABLE `NhomHang` (
    `MaNhom` VARCHAR(10) NOT NULL PRIMARY KEY,
    `TenNhom` VARCHAR(50)
);
INSERT INTO `NhomHang` (`MaNhom`, `TenNhom`) VALUES ('DT', 'Điện tử');
INSERT INTO `NhomHang` (`MaNhom`, `TenNhom`) VALUES ('GD', 'Đồ gia dụng');
INSERT INTO `NhomHang` (`MaNhom`, `TenNhom`) VALUES ('TP', 'Thực phẩm');
INSERT INTO `NhomHang` (`MaNhom`, `TenNhom`) VALUES ('VP', 'Văn phòng phẩm');
INSERT INTO `NhomHang` (`MaNhom`, `TenNhom`) VALUES ('MM', 'May mặc');

-- Customers of the host program.
CREATE TABLE `KhachHang` (
    `MaKH` VARCHAR(10) NOT NULL PRIMARY KEY,
    `Name` VARCHAR(100),
    `MaTinh` VARCHAR(10),
    `DiaChi` VARCHAR(500),
    `NgayLap` DATE,
    `SoDonHang` INT,
    `CongNo` DOUBLE,
    `KhachSi` INT
);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH001', 'Công ty TNHH Hoàng Long', 'HN', '25 Lý Thường Kiệt, Hoàn Kiếm', '2004-01-15', 42, 125500000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH002', 'Cửa hàng điện máy Ánh Dương', 'HN', '118 Giải Phóng, Đống Đa', '2004-02-03', 17, 38250000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH003', 'Nguyễn Thị Lan', 'HN', '7 ngõ 12 Láng Hạ, Ba Đình', '2004-02-20', 3, 0, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH004', 'Siêu thị Thành Đạt', 'HP', '56 Lạch Tray, Ngô Quyền', '2004-03-11', 28, 76400000.5, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH005', 'Trần Quang Vinh', 'HP', '9 Điện Biên Phủ, Hồng Bàng', '2004-03-30', 1, 450000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH006', 'Khách sạn Hạ Long Xanh', 'QN', '2 Bãi Cháy, Hạ Long', '2004-04-08', 12, 22100000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH007', 'Phạm Đình Khôi', 'QN', '31 Trần Hưng Đạo, Hạ Long', '2004-05-19', 2, 0, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH008', 'Đại lý Phú Quý', 'NA', '88 Quang Trung, Vinh', '2004-06-01', 19, 41750000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH009', 'Hồ Thị Xuân', 'NA', '14 Lê Lợi, Vinh', '2004-06-24', 4, 1280000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH010', 'Nhà sách Cố Đô', 'TTH', '45 Hùng Vương, Huế', '2004-07-02', 23, 15600000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH011', 'Lê Bá Thắng', 'TTH', '3 Kim Long, Huế', '2004-07-21', 1, 0, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH012', 'Công ty cổ phần Sông Hàn', 'DN', '102 Bạch Đằng, Hải Châu', '2004-08-09', 35, 98300000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH013', 'Đỗ Minh Tuấn', 'DN', '27 Nguyễn Văn Linh, Thanh Khê', '2004-09-02', 5, 2150000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH014', 'Cửa hàng Biển Xanh', 'KH', '60 Trần Phú, Nha Trang', '2004-09-15', 14, 9870000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH015', 'Vũ Ngọc Ánh', 'KH', '11 Yersin, Nha Trang', '2004-10-10', 2, 350000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH016', 'Tập đoàn Sài Gòn Mới', 'HCM', '1 Nguyễn Huệ, Quận 1', '2004-10-28', 64, 310000000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH017', 'Siêu thị Bến Thành', 'HCM', '200 Lê Thánh Tôn, Quận 1', '2004-11-05', 51, 187250000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH018', 'John O''Brien', 'HCM', '33 Mạc Thị Bưởi, Quận 1', '2004-11-30', 6, 5400000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH019', 'Bùi Hữu Nghĩa', 'HCM', '75 Cách Mạng Tháng Tám, Quận 3', '2004-12-12', 3, 0, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH020', 'Công ty TNHH Đức Thịnh', 'HCM', '415 Hai Bà Trưng, Quận 3', '2005-01-06', 37, 143900000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH021', 'Quán ăn Ngon', 'HCM', '138 Nam Kỳ Khởi Nghĩa, Quận 1', '2005-01-18', 9, 6720000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH022', 'Nông trường Sông Hậu', 'CT', 'Quốc lộ 91, Ô Môn', '2005-02-02', 21, 54300000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH023', 'Huỳnh Thị Bé', 'CT', '5 Ninh Kiều, Cần Thơ', '2005-03-05', 2, 890000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH024', 'Đại lý Thanh Bình', 'AG', '19 Tôn Đức Thắng, Long Xuyên', '2005-03-17', 16, 27450000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH025', 'Mạc Văn Út', 'AG', '42 Thoại Ngọc Hầu, Long Xuyên', '2005-03-29', 1, 0, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH026', 'Ngô Thế Bảo', 'HN', '90 Kim Mã, Ba Đình', '2005-04-04', 4, 1995000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH027', 'Trường THPT Chu Văn An', 'HN', '10 Thuỵ Khuê, Tây Hồ', '2005-04-22', 8, 17800000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH028', 'Cửa hàng Ước Mơ', 'HP', '73 Cầu Đất, Ngô Quyền', '2005-05-03', 11, 8340000.25, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH029', 'Dương Thuỳ Ý', 'DN', '6 Ông Ích Khiêm, Hải Châu', '2005-05-16', 1, 120000, 0);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH030', 'Công ty "Tre Việt"', 'DN', '250 Điện Biên Phủ, Thanh Khê', '2005-06-01', 13, 33600000, 1);
INSERT INTO `KhachHang` (`MaKH`, `Name`, `MaTinh`, `DiaChi`, `NgayLap`, `SoDonHang`, `CongNo`, `KhachSi`) VALUES ('KH031', 'Khách vãng lai', NULL, NULL, NULL, 0, 0, 0);

-- Goods of the host program.
CREATE TABLE `HangHoa` (
    `MaHang` VARCHAR(10) NOT NULL PRIMARY KEY,
    `TenHang` VARCHAR(100),
    `MaNhom` VARCHAR(10),
    `DonVi` VARCHAR(20),
    `SoLuong` INT,
    `DonGia` DOUBLE,
    `NgayNhap` DATE,
    `ConBan` INT,
    `MoTa` VARCHAR(500)
);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT01', 'Nồi cơm điện 1,8 lít', 'DT', 'Cái', 24, 450000, '2005-01-10', 1, 'Lòng nồi chống dính, bảo hành 12 tháng');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT02', 'Quạt bàn 3 cánh', 'DT', 'Cái', 40, 285000, '2005-01-10', 1, 'Ba tốc độ gió');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT03', 'Bàn ủi hơi nước', 'DT', 'Cái', 15, 520000, '2005-02-14', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT04', 'Tivi màu 21 inch', 'DT', 'Cái', 6, 3250000, '2005-02-14', 1, 'Màn hình phẳng, âm thanh nổi');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT05', 'Đầu đĩa DVD', 'DT', 'Cái', 11, 1150000, '2005-03-03', 1, 'Có ngõ ra âm thanh số');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT06', 'Ấm đun nước siêu tốc', 'DT', 'Cái', 32, 195000, '2005-03-03', 1, 'Tự ngắt khi sôi');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('DT07', 'Máy xay sinh tố', 'DT', 'Cái', 0, 610000, '2004-08-20', 0, 'Ngừng kinh doanh');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('GD01', 'Bộ nồi inox 5 món', 'GD', 'Bộ', 18, 890000, '2005-01-25', 1, 'Đáy ba lớp');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('GD02', 'Chảo chống dính 26 cm', 'GD', 'Cái', 27, 165000, '2005-01-25', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('GD03', 'Bình thuỷ 2 lít', 'GD', 'Cái', 35, 142500.5, '2005-02-02', 1, 'Ruột thuỷ tinh tráng bạc');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('GD04', 'Ghế nhựa có lưng tựa', 'GD', 'Cái', 120, 48000, '2005-02-02', 1, 'Chịu tải 100 kg');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('GD05', 'Thau nhôm 60 cm', 'GD', 'Cái', 44, 73000, '2005-04-11', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('GD06', 'Đèn bàn học', 'GD', 'Cái', 21, 215000, '2005-04-11', 1, 'Chống chói, kẹp bàn');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP01', 'Nước mắm Phú Quốc 40 độ', 'TP', 'Chai', 200, 38000, '2005-05-05', 1, 'Chai thuỷ tinh 500 ml');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP02', 'Gạo tám thơm', 'TP', 'Kg', 1500, 9500, '2005-05-05', 1, 'Bao 10 kg');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP03', 'Cà phê Buôn Ma Thuột', 'TP', 'Gói', 340, 27500, '2005-05-07', 1, 'Rang xay, gói 250 g');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP04', 'Trà sen Tây Hồ', 'TP', 'Hộp', 58, 125000, '2005-05-07', 1, 'Ướp hoa sen tươi');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP05', 'Bánh cốm Hàng Than', 'TP', 'Hộp', 0, 32000, '2005-05-09', 1, 'Dùng trong ba ngày');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP06', 'Đường cát trắng', 'TP', 'Kg', 620, 7800, '2005-05-12', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP07', 'Mì ăn liền tôm chua cay', 'TP', 'Thùng', 85, 52000, '2005-05-12', 1, 'Thùng 30 gói');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('TP08', 'Ô mai sấu', 'TP', 'Gói', 96, 18500, '2005-05-20', 1, 'Vị gừng');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('VP01', 'Giấy in A4', 'VP', 'Ram', 260, 46500, '2005-03-21', 1, '70 g, 500 tờ');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('VP02', 'Bút bi xanh', 'VP', 'Hộp', 75, 36000, '2005-03-21', 1, 'Hộp 20 cây');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('VP03', 'Sổ bìa cứng 200 trang', 'VP', 'Quyển', 130, 14000, '2005-03-28', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('VP04', 'Kẹp giấy', 'VP', 'Hộp', 310, 4500, '2005-03-28', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('VP05', 'Mực in laser', 'VP', 'Hộp', 9, 1420000, '2005-04-18', 1, 'In khoảng 2000 trang');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('VP06', 'Máy tính bỏ túi', 'VP', 'Cái', 0, 135000, '2004-06-30', 0, 'Ngừng kinh doanh');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('MM01', 'Áo sơ mi nam dài tay', 'MM', 'Cái', 64, 185000, '2005-04-25', 1, 'Vải cô tông, cỡ 38 đến 42');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('MM02', 'Quần âu nam', 'MM', 'Cái', 48, 240000, '2005-04-25', 1, NULL);
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('MM03', 'Áo dài lụa Hà Đông', 'MM', 'Bộ', 12, 950000, '2005-05-15', 1, 'May theo số đo');
INSERT INTO `HangHoa` (`MaHang`, `TenHang`, `MaNhom`, `DonVi`, `SoLuong`, `DonGia`, `NgayNhap`, `ConBan`, `MoTa`) VALUES ('MM04', 'Khăn rằn Nam Bộ', 'MM', 'Cái', 150, 25000, '2005-05-15', 1, 'Dệt thủ công');
