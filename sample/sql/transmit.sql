-- The profiles of the transmission programs, in a database file of their own. A profile is found by its number and the
-- user that it belongs to; users compare without regard to case.

BEGIN;

CREATE TABLE Transmit_Info (
    TransmitNo             SMALLINT     NOT NULL,
    UserID                 TEXT NOT NULL COLLATE NOCASE, -- 20
    DefinitionFileName     TEXT,           -- 255
    DefinitionFileName2    TEXT,           -- 255
    DefinitionFileName3    TEXT,           -- 255
    OutPutFileName         TEXT,           -- 255
    ImageFileSendPath      TEXT,           -- 255
    DefinitionFileNameMode SMALLINT,
    DataMax                INTEGER,
    ImageUpLoadFlg         SMALLINT,
    MakeMode               SMALLINT,
    SendMode               SMALLINT,     -- 0: FTP, 2: files only, any other: HTTP
    SiteAddress2           TEXT,           -- 255
    GroupID                TEXT,           -- 40
    LoginID                TEXT,           -- 40
    Passwd                 TEXT,           -- 40
    HomeDir                TEXT,           -- 255
    HomeImageDirCheck      SMALLINT,
    HomeImageDir           TEXT,           -- 255
    HomeImageDir2          TEXT,           -- 255
    HomeImageDir3          TEXT,           -- 255
    HomeImageDir4          TEXT,           -- 255
    HomeImageDir5          TEXT,           -- 255
    HomeImageDir6          TEXT,           -- 255
    HomeImageDir7          TEXT,           -- 255
    HomeImageDir8          TEXT,           -- 255
    HomeImageDir9          TEXT,           -- 255
    HomeImageDir10         TEXT,           -- 255
    AppendFilePath         TEXT,           -- 255
    OrvTransmitMode        SMALLINT,
    ImageFileNameFlg       SMALLINT,
    ImageGifFileFlg        SMALLINT,
    CommandFilePath        TEXT,           -- 255
    PRIMARY KEY (TransmitNo, UserID)
);

-- Everything filled, one folder with its slash and one without.
INSERT INTO Transmit_Info VALUES (
    1, '000004601', 'C:\ORV\DAT\BUKKEN.DEF', 'C:\ORV\DAT\BUKKEN2.DEF', 'C:\ORV\DAT\BUKKEN3.DEF',
    'C:\ORV\SND\BUKKEN.CSV', 'C:\ORV\IMG\', 2, 500, 1, 1, 1, 'www.example.jp', 'GRP01', 'mihon', 'mihon-pass',
    '/home/mihon', 1, '/home/mihon/img/', '/home/mihon/img2', '/home/mihon/img3', '/home/mihon/img4',
    '/home/mihon/img5', '/home/mihon/img6', '/home/mihon/img7', '/home/mihon/img8', '/home/mihon/img9',
    '/home/mihon/img10', 'C:\ORV\DAT\APPEND.TXT', 1, 1, 1, 'C:\ORV\DAT\SEND.CMD');

-- The key alone: every other column is null.
INSERT INTO Transmit_Info (TransmitNo, UserID) VALUES (2, '000004601');

COMMIT;
