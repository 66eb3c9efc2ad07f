-- SPDX-License-Identifier: MIT
-- VnAudit: who has done what, where and when. Needed where clsSettings has Audit = True. Times are UTC. May be run twice.
IF OBJECT_ID(N'VnAudit') IS NULL
BEGIN
CREATE TABLE [VnAudit] (
    [Code] INT IDENTITY(1,1) NOT NULL PRIMARY KEY,
    [At] DATETIME NOT NULL DEFAULT GETUTCDATE(),
    [UserCode] INT NULL,
    [UserName] NVARCHAR(100) NULL,
    [PC] NVARCHAR(50) NULL,
    [WinUser] NVARCHAR(50) NULL,
    [Action] NVARCHAR(50) NOT NULL,
    [Subject] NVARCHAR(255) NULL,
    [Before] NVARCHAR(MAX) NULL,
    [After] NVARCHAR(MAX) NULL
);
CREATE INDEX [VnAuditAt] ON [VnAudit] ([At]);
END
GO
