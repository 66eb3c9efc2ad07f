-- SPDX-License-Identifier: MIT
-- Sample database for SQL Server. Run it in an empty database made with
-- CREATE DATABASE VnDeskSample COLLATE Vietnamese_CI_AS, so that text compares without regard to case.
-- The field catalogue has no dates: SQL Server does not read the search dialog's date literals.
SET NOCOUNT ON;
SET XACT_ABORT ON;
BEGIN TRANSACTION;

-- Users who may log on. Code stays the first column.
CREATE TABLE [User] (
    [Code] INT IDENTITY(1,1) NOT NULL CONSTRAINT [PK_User] PRIMARY KEY,
    [Name] NVARCHAR(50) NULL,
    [Dec] NVARCHAR(100) NULL,
    [IdGroup] INT NULL,
    [Password] FLOAT NULL
);
SET IDENTITY_INSERT [User] ON;
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (1, N'Nguyễn Văn Hưng', N'Kế toán trưởng', 2, 1133116);
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (2, N'Trần Thị Mai', N'Nhân viên bán hàng', 3, 0);
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (3, N'Admin', N'Quản trị chính của chương trình', 1, 1401);
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (4, N'Lê Quốc Việt', N'Thủ kho', 5, 1196379);
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (5, N'Phạm Thu Hà', N'Kế toán công nợ', 2, 22980);
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (7, N'Khách', N'Chỉ được xem báo cáo', 8, 0);
INSERT INTO [User] ([Code], [Name], [Dec], [IdGroup], [Password]) VALUES (9, N'Đặng Ngọc Sơn', N'Trưởng phòng kinh doanh', 3, 1233967);
SET IDENTITY_INSERT [User] OFF;

-- User groups. P1..P3: one rights mask per row of Menu, in the same order.
CREATE TABLE [Groups] (
    [Code] INT IDENTITY(1,1) NOT NULL CONSTRAINT [PK_Groups] PRIMARY KEY,
    [Name] NVARCHAR(50) NULL,
    [Des] NVARCHAR(100) NULL,
    [P1] INT NULL,
    [P2] INT NULL,
    [P3] INT NULL
);
SET IDENTITY_INSERT [Groups] ON;
INSERT INTO [Groups] ([Code], [Name], [Des], [P1], [P2], [P3]) VALUES (1, N'Quản trị', N'Toàn quyền trên chương trình', 15, 63, 31);
INSERT INTO [Groups] ([Code], [Name], [Des], [P1], [P2], [P3]) VALUES (2, N'Kế toán', N'Phòng kế toán', 5, 48, 31);
INSERT INTO [Groups] ([Code], [Name], [Des], [P1], [P2], [P3]) VALUES (3, N'Bán hàng', N'Phòng kinh doanh', 1, 3, 5);
INSERT INTO [Groups] ([Code], [Name], [Des], [P1], [P2], [P3]) VALUES (5, N'Kho', N'Bộ phận kho', 7, 0, 1);
INSERT INTO [Groups] ([Code], [Name], [Des], [P1], [P2], [P3]) VALUES (8, N'Khách', N'Chỉ xem báo cáo', 0, 0, 1);
SET IDENTITY_INSERT [Groups] OFF;

-- Menu bars of the host program.
CREATE TABLE [Menu] (
    [ID] INT IDENTITY(1,1) NOT NULL CONSTRAINT [PK_Menu] PRIMARY KEY,
    [Desc] NVARCHAR(50) NULL
);
SET IDENTITY_INSERT [Menu] ON;
INSERT INTO [Menu] ([ID], [Desc]) VALUES (1, N'Hệ thống');
INSERT INTO [Menu] ([ID], [Desc]) VALUES (2, N'Danh mục');
INSERT INTO [Menu] ([ID], [Desc]) VALUES (3, N'Báo cáo');
SET IDENTITY_INSERT [Menu] OFF;

-- Commands under each menu bar; bit i of a mask is the i-th command by ID.
CREATE TABLE [SubMenu] (
    [ID] INT IDENTITY(1,1) NOT NULL CONSTRAINT [PK_SubMenu] PRIMARY KEY,
    [IdMenuBar] INT NULL,
    [Desc] NVARCHAR(50) NULL
);
SET IDENTITY_INSERT [SubMenu] ON;
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (1, 1, N'Đổi mật khẩu');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (2, 1, N'Người sử dụng');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (3, 1, N'Nhóm người sử dụng');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (4, 1, N'Sao lưu dữ liệu');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (5, 2, N'Khách hàng');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (6, 2, N'Nhà cung cấp');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (7, 2, N'Hàng hoá');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (8, 2, N'Nhóm hàng');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (9, 2, N'Tài khoản');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (10, 2, N'Tỉnh thành');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (11, 3, N'Tồn kho');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (12, 3, N'Nhập xuất tồn');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (13, 3, N'Doanh thu');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (14, 3, N'Công nợ phải thu');
INSERT INTO [SubMenu] ([ID], [IdMenuBar], [Desc]) VALUES (15, 3, N'Công nợ phải trả');
SET IDENTITY_INSERT [SubMenu] OFF;

-- Named settings. One value is null and one is empty on purpose.
CREATE TABLE [Options] (
    [Section] NVARCHAR(50) NULL,
    [KeyName] NVARCHAR(50) NULL,
    [KeyValue] NVARCHAR(200) NULL,
    [Description] NVARCHAR(200) NULL
);
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'CongTy', N'TenCongTy', N'Công ty TNHH Thương mại Hưng Thịnh', N'Tên in trên báo cáo');
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'CongTy', N'DiaChi', N'12 Hàng Bài, Hoàn Kiếm, Hà Nội', N'Địa chỉ in trên báo cáo');
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'CongTy', N'MaSoThue', N'0100107518', NULL);
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'BaoCao', N'SoDongMoiTrang', N'40', N'Số dòng in trên một trang');
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'BaoCao', N'NguoiLap', NULL, N'Người lập biểu, chưa khai báo');
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'BaoCao', N'GhiChuCuoiTrang', N'', NULL);
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'HeThong', N'ThuMucSaoLuu', N'C:\SaoLuu', NULL);
INSERT INTO [Options] ([Section], [KeyName], [KeyValue], [Description]) VALUES (N'HeThong', N'NamTaiChinh', N'2005', N'Năm tài chính hiện hành');

-- Field catalogue of the search dialog: what may be searched, table by table.
CREATE TABLE [LstFld] (
    [Code] INT IDENTITY(1,1) NOT NULL CONSTRAINT [PK_LstFld] PRIMARY KEY,
    [InTable] NVARCHAR(50) NULL,
    [Name] NVARCHAR(50) NULL,
    [Desc] NVARCHAR(100) NULL,
    [Type] INT NULL,
    [Relation] NVARCHAR(200) NULL
);
SET IDENTITY_INSERT [LstFld] ON;
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (10, N'KhachHang', N'MaKH', N'Mã khách hàng', 10, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (20, N'KhachHang', N'Name', N'Tên khách hàng', 10, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (30, N'KhachHang', N'MaTinh', N'Tỉnh thành', 10, N'TinhThanh');
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (40, N'KhachHang', N'DiaChi', N'Địa chỉ', 11, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (60, N'KhachHang', N'SoDonHang', N'Số đơn hàng', 3, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (70, N'KhachHang', N'CongNo', N'Công nợ', 13, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (80, N'KhachHang', N'KhachSi', N'Khách sỉ (1 có, 0 không)', 1, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (110, N'HangHoa', N'MaHang', N'Mã hàng', 10, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (120, N'HangHoa', N'TenHang', N'Tên hàng', 10, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (130, N'HangHoa', N'MaNhom', N'Nhóm hàng', 10, N'Select MaNhom,TenNhom From NhomHang Where TenNhom');
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (140, N'HangHoa', N'DonVi', N'Đơn vị tính', 10, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (150, N'HangHoa', N'SoLuong', N'Số lượng tồn', 3, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (160, N'HangHoa', N'DonGia', N'Đơn giá', 13, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (180, N'HangHoa', N'ConBan', N'Còn bán (1 có, 0 không)', 1, NULL);
INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (190, N'HangHoa', N'MoTa', N'Mô tả', 11, NULL);
-- Dates, only for hosts that set Dialect to vnDialectSqlServer: SQL Server does not read those of other hosts.
-- INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (50, N'KhachHang', N'NgayLap', N'Ngày lập thẻ', 8, NULL);
-- INSERT INTO [LstFld] ([Code], [InTable], [Name], [Desc], [Type], [Relation]) VALUES (170, N'HangHoa', N'NgayNhap', N'Ngày nhập', 8, NULL);
SET IDENTITY_INSERT [LstFld] OFF;

-- Comparison operators offered per field type.
CREATE TABLE [Operator] (
    [Code] INT IDENTITY(1,1) NOT NULL CONSTRAINT [PK_Operator] PRIMARY KEY,
    [Name] NVARCHAR(20) NULL,
    [Des] NVARCHAR(50) NULL,
    [Type] INT NULL
);
SET IDENTITY_INSERT [Operator] ON;
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (1, N'=', N'bằng', 1);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (2, N'<>', N'khác', 1);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (3, N'=', N'bằng', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (4, N'<>', N'khác', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (5, N'>', N'lớn hơn', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (6, N'>=', N'lớn hơn hoặc bằng', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (7, N'<', N'nhỏ hơn', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (8, N'<=', N'nhỏ hơn hoặc bằng', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (9, N'IN', N'thuộc danh sách', 3);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (10, N'=', N'đúng ngày', 8);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (11, N'<>', N'khác ngày', 8);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (12, N'>', N'sau ngày', 8);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (13, N'>=', N'từ ngày', 8);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (14, N'<', N'trước ngày', 8);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (15, N'<=', N'đến ngày', 8);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (16, N'=', N'bằng', 10);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (17, N'LIKE', N'bắt đầu bằng', 10);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (18, N'<>', N'khác', 10);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (19, N'IN', N'thuộc danh sách', 10);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (20, N'LIKE', N'bắt đầu bằng', 11);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (21, N'=', N'bằng', 11);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (22, N'<>', N'khác', 11);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (23, N'=', N'bằng', 13);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (24, N'<>', N'khác', 13);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (25, N'>', N'lớn hơn', 13);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (26, N'>=', N'lớn hơn hoặc bằng', 13);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (27, N'<', N'nhỏ hơn', 13);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (28, N'<=', N'nhỏ hơn hoặc bằng', 13);
INSERT INTO [Operator] ([Code], [Name], [Des], [Type]) VALUES (29, N'IN', N'thuộc danh sách', 13);
SET IDENTITY_INSERT [Operator] OFF;

-- Provinces: look-up list of KhachHang.MaTinh (code first, then name).
CREATE TABLE [TinhThanh] (
    [Code] NVARCHAR(10) NOT NULL CONSTRAINT [PK_TinhThanh] PRIMARY KEY,
    [Name] NVARCHAR(50) NULL
);
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'HN', N'Hà Nội');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'HP', N'Hải Phòng');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'QN', N'Quảng Ninh');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'NA', N'Nghệ An');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'TTH', N'Thừa Thiên Huế');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'DN', N'Đà Nẵng');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'KH', N'Khánh Hoà');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'HCM', N'TP Hồ Chí Minh');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'CT', N'Cần Thơ');
INSERT INTO [TinhThanh] ([Code], [Name]) VALUES (N'AG', N'An Giang');

-- Kinds of goods: look-up list of HangHoa.MaNhom.
CREATE TABLE [NhomHang] (
    [MaNhom] NVARCHAR(10) NOT NULL CONSTRAINT [PK_NhomHang] PRIMARY KEY,
    [TenNhom] NVARCHAR(50) NULL
);
INSERT INTO [NhomHang] ([MaNhom], [TenNhom]) VALUES (N'DT', N'Điện tử');
INSERT INTO [NhomHang] ([MaNhom], [TenNhom]) VALUES (N'GD', N'Đồ gia dụng');
INSERT INTO [NhomHang] ([MaNhom], [TenNhom]) VALUES (N'TP', N'Thực phẩm');
INSERT INTO [NhomHang] ([MaNhom], [TenNhom]) VALUES (N'VP', N'Văn phòng phẩm');
INSERT INTO [NhomHang] ([MaNhom], [TenNhom]) VALUES (N'MM', N'May mặc');

-- Customers of the host program.
CREATE TABLE [KhachHang] (
    [MaKH] NVARCHAR(10) NOT NULL CONSTRAINT [PK_KhachHang] PRIMARY KEY,
    [Name] NVARCHAR(100) NULL,
    [MaTinh] NVARCHAR(10) NULL,
    [DiaChi] NVARCHAR(500) NULL,
    [NgayLap] DATETIME NULL,
    [SoDonHang] INT NULL,
    [CongNo] FLOAT NULL,
    [KhachSi] INT NULL
);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH001', N'Công ty TNHH Hoàng Long', N'HN', N'25 Lý Thường Kiệt, Hoàn Kiếm', '20040115', 42, 125500000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH002', N'Cửa hàng điện máy Ánh Dương', N'HN', N'118 Giải Phóng, Đống Đa', '20040203', 17, 38250000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH003', N'Nguyễn Thị Lan', N'HN', N'7 ngõ 12 Láng Hạ, Ba Đình', '20040220', 3, 0, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH004', N'Siêu thị Thành Đạt', N'HP', N'56 Lạch Tray, Ngô Quyền', '20040311', 28, 76400000.5, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH005', N'Trần Quang Vinh', N'HP', N'9 Điện Biên Phủ, Hồng Bàng', '20040330', 1, 450000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH006', N'Khách sạn Hạ Long Xanh', N'QN', N'2 Bãi Cháy, Hạ Long', '20040408', 12, 22100000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH007', N'Phạm Đình Khôi', N'QN', N'31 Trần Hưng Đạo, Hạ Long', '20040519', 2, 0, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH008', N'Đại lý Phú Quý', N'NA', N'88 Quang Trung, Vinh', '20040601', 19, 41750000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH009', N'Hồ Thị Xuân', N'NA', N'14 Lê Lợi, Vinh', '20040624', 4, 1280000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH010', N'Nhà sách Cố Đô', N'TTH', N'45 Hùng Vương, Huế', '20040702', 23, 15600000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH011', N'Lê Bá Thắng', N'TTH', N'3 Kim Long, Huế', '20040721', 1, 0, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH012', N'Công ty cổ phần Sông Hàn', N'DN', N'102 Bạch Đằng, Hải Châu', '20040809', 35, 98300000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH013', N'Đỗ Minh Tuấn', N'DN', N'27 Nguyễn Văn Linh, Thanh Khê', '20040902', 5, 2150000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH014', N'Cửa hàng Biển Xanh', N'KH', N'60 Trần Phú, Nha Trang', '20040915', 14, 9870000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH015', N'Vũ Ngọc Ánh', N'KH', N'11 Yersin, Nha Trang', '20041010', 2, 350000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH016', N'Tập đoàn Sài Gòn Mới', N'HCM', N'1 Nguyễn Huệ, Quận 1', '20041028', 64, 310000000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH017', N'Siêu thị Bến Thành', N'HCM', N'200 Lê Thánh Tôn, Quận 1', '20041105', 51, 187250000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH018', N'John O''Brien', N'HCM', N'33 Mạc Thị Bưởi, Quận 1', '20041130', 6, 5400000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH019', N'Bùi Hữu Nghĩa', N'HCM', N'75 Cách Mạng Tháng Tám, Quận 3', '20041212', 3, 0, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH020', N'Công ty TNHH Đức Thịnh', N'HCM', N'415 Hai Bà Trưng, Quận 3', '20050106', 37, 143900000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH021', N'Quán ăn Ngon', N'HCM', N'138 Nam Kỳ Khởi Nghĩa, Quận 1', '20050118', 9, 6720000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH022', N'Nông trường Sông Hậu', N'CT', N'Quốc lộ 91, Ô Môn', '20050202', 21, 54300000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH023', N'Huỳnh Thị Bé', N'CT', N'5 Ninh Kiều, Cần Thơ', '20050305', 2, 890000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH024', N'Đại lý Thanh Bình', N'AG', N'19 Tôn Đức Thắng, Long Xuyên', '20050317', 16, 27450000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH025', N'Mạc Văn Út', N'AG', N'42 Thoại Ngọc Hầu, Long Xuyên', '20050329', 1, 0, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH026', N'Ngô Thế Bảo', N'HN', N'90 Kim Mã, Ba Đình', '20050404', 4, 1995000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH027', N'Trường THPT Chu Văn An', N'HN', N'10 Thuỵ Khuê, Tây Hồ', '20050422', 8, 17800000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH028', N'Cửa hàng Ước Mơ', N'HP', N'73 Cầu Đất, Ngô Quyền', '20050503', 11, 8340000.25, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH029', N'Dương Thuỳ Ý', N'DN', N'6 Ông Ích Khiêm, Hải Châu', '20050516', 1, 120000, 0);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH030', N'Công ty "Tre Việt"', N'DN', N'250 Điện Biên Phủ, Thanh Khê', '20050601', 13, 33600000, 1);
INSERT INTO [KhachHang] ([MaKH], [Name], [MaTinh], [DiaChi], [NgayLap], [SoDonHang], [CongNo], [KhachSi]) VALUES (N'KH031', N'Khách vãng lai', NULL, NULL, NULL, 0, 0, 0);

-- Goods of the host program.
CREATE TABLE [HangHoa] (
    [MaHang] NVARCHAR(10) NOT NULL CONSTRAINT [PK_HangHoa] PRIMARY KEY,
    [TenHang] NVARCHAR(100) NULL,
    [MaNhom] NVARCHAR(10) NULL,
    [DonVi] NVARCHAR(20) NULL,
    [SoLuong] INT NULL,
    [DonGia] FLOAT NULL,
    [NgayNhap] DATETIME NULL,
    [ConBan] INT NULL,
    [MoTa] NVARCHAR(500) NULL
);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT01', N'Nồi cơm điện 1,8 lít', N'DT', N'Cái', 24, 450000, '20050110', 1, N'Lòng nồi chống dính, bảo hành 12 tháng');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT02', N'Quạt bàn 3 cánh', N'DT', N'Cái', 40, 285000, '20050110', 1, N'Ba tốc độ gió');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT03', N'Bàn ủi hơi nước', N'DT', N'Cái', 15, 520000, '20050214', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT04', N'Tivi màu 21 inch', N'DT', N'Cái', 6, 3250000, '20050214', 1, N'Màn hình phẳng, âm thanh nổi');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT05', N'Đầu đĩa DVD', N'DT', N'Cái', 11, 1150000, '20050303', 1, N'Có ngõ ra âm thanh số');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT06', N'Ấm đun nước siêu tốc', N'DT', N'Cái', 32, 195000, '20050303', 1, N'Tự ngắt khi sôi');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'DT07', N'Máy xay sinh tố', N'DT', N'Cái', 0, 610000, '20040820', 0, N'Ngừng kinh doanh');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'GD01', N'Bộ nồi inox 5 món', N'GD', N'Bộ', 18, 890000, '20050125', 1, N'Đáy ba lớp');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'GD02', N'Chảo chống dính 26 cm', N'GD', N'Cái', 27, 165000, '20050125', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'GD03', N'Bình thuỷ 2 lít', N'GD', N'Cái', 35, 142500.5, '20050202', 1, N'Ruột thuỷ tinh tráng bạc');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'GD04', N'Ghế nhựa có lưng tựa', N'GD', N'Cái', 120, 48000, '20050202', 1, N'Chịu tải 100 kg');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'GD05', N'Thau nhôm 60 cm', N'GD', N'Cái', 44, 73000, '20050411', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'GD06', N'Đèn bàn học', N'GD', N'Cái', 21, 215000, '20050411', 1, N'Chống chói, kẹp bàn');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP01', N'Nước mắm Phú Quốc 40 độ', N'TP', N'Chai', 200, 38000, '20050505', 1, N'Chai thuỷ tinh 500 ml');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP02', N'Gạo tám thơm', N'TP', N'Kg', 1500, 9500, '20050505', 1, N'Bao 10 kg');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP03', N'Cà phê Buôn Ma Thuột', N'TP', N'Gói', 340, 27500, '20050507', 1, N'Rang xay, gói 250 g');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP04', N'Trà sen Tây Hồ', N'TP', N'Hộp', 58, 125000, '20050507', 1, N'Ướp hoa sen tươi');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP05', N'Bánh cốm Hàng Than', N'TP', N'Hộp', 0, 32000, '20050509', 1, N'Dùng trong ba ngày');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP06', N'Đường cát trắng', N'TP', N'Kg', 620, 7800, '20050512', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP07', N'Mì ăn liền tôm chua cay', N'TP', N'Thùng', 85, 52000, '20050512', 1, N'Thùng 30 gói');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'TP08', N'Ô mai sấu', N'TP', N'Gói', 96, 18500, '20050520', 1, N'Vị gừng');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'VP01', N'Giấy in A4', N'VP', N'Ram', 260, 46500, '20050321', 1, N'70 g, 500 tờ');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'VP02', N'Bút bi xanh', N'VP', N'Hộp', 75, 36000, '20050321', 1, N'Hộp 20 cây');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'VP03', N'Sổ bìa cứng 200 trang', N'VP', N'Quyển', 130, 14000, '20050328', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'VP04', N'Kẹp giấy', N'VP', N'Hộp', 310, 4500, '20050328', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'VP05', N'Mực in laser', N'VP', N'Hộp', 9, 1420000, '20050418', 1, N'In khoảng 2000 trang');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'VP06', N'Máy tính bỏ túi', N'VP', N'Cái', 0, 135000, '20040630', 0, N'Ngừng kinh doanh');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'MM01', N'Áo sơ mi nam dài tay', N'MM', N'Cái', 64, 185000, '20050425', 1, N'Vải cô tông, cỡ 38 đến 42');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'MM02', N'Quần âu nam', N'MM', N'Cái', 48, 240000, '20050425', 1, NULL);
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'MM03', N'Áo dài lụa Hà Đông', N'MM', N'Bộ', 12, 950000, '20050515', 1, N'May theo số đo');
INSERT INTO [HangHoa] ([MaHang], [TenHang], [MaNhom], [DonVi], [SoLuong], [DonGia], [NgayNhap], [ConBan], [MoTa]) VALUES (N'MM04', N'Khăn rằn Nam Bộ', N'MM', N'Cái', 150, 25000, '20050515', 1, N'Dệt thủ công');

COMMIT TRANSACTION;
