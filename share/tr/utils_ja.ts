<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>FtpMachine</name>
    <message>
        <source>Invalid character in name</source>
        <translation>名前に使用できない文字があります</translation>
    </message>
    <message>
        <source>Host %1 not found</source>
        <translation>ホスト %1 が見つかりません</translation>
    </message>
    <message>
        <source>Connection refused to host %1</source>
        <translation>ホスト %1 への接続が拒否されました</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>%1 への接続が閉じられました</translation>
    </message>
    <message>
        <source>The local file has changed</source>
        <translation>ローカルファイルが変更されました</translation>
    </message>
    <message>
        <source>Connecting to host failed:
%1</source>
        <translation>ホストに接続できませんでした:
%1</translation>
    </message>
    <message>
        <source>Login failed:
%1</source>
        <translation>ログインできませんでした:
%1</translation>
    </message>
    <message>
        <source>Uploading file failed:
%1</source>
        <translation>ファイルをアップロードできませんでした:
%1</translation>
    </message>
    <message>
        <source>Connection refused for data connection</source>
        <translation>データ接続が拒否されました</translation>
    </message>
    <message>
        <source>Data connection closed</source>
        <translation>データ接続が閉じられました</translation>
    </message>
</context>
<context>
    <name>ImagePropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>画像のプロパティ</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>幅 [ピクセル]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>高さ [ピクセル]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>ビット深度</translation>
    </message>
    <message>
        <source>Colors in Palette</source>
        <translation>パレットの色数</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>グレースケール</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Bytes (not including palette)</source>
        <translation>バイト数 (パレットを除く)</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>1行あたりのバイト数</translation>
    </message>
    <message>
        <source>Zoom coefficient</source>
        <translation>表示倍率</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>画像のプロパティ</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>プロパティ</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>幅 [ピクセル]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>高さ [ピクセル]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>ビット深度</translation>
    </message>
    <message>
        <source>Colors In Pallette</source>
        <translation>パレットの色数</translation>
    </message>
    <message>
        <source>GrayScale</source>
        <translation>グレースケール</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>バイト数</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>1行あたりのバイト数</translation>
    </message>
    <message>
        <source>Zoom Coefficient</source>
        <translation>表示倍率</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>OK(&amp;O)</translation>
    </message>
    <message>
        <source>Alt+O</source>
        <translation>Alt+O</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>Q3ScrollView</name>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>水平スクロールバー</translation>
    </message>
    <message>
        <source>Vertical scroll bar</source>
        <translation>垂直スクロールバー</translation>
    </message>
</context>
<context>
    <name>Q3UrlOperator</name>
    <message>
        <source>The protocol `%1&apos; is not supported</source>
        <translation>プロトコル「%1」には対応していません</translation>
    </message>
</context>
<context>
    <name>ResizeDialog</name>
    <message>
        <source>Resize</source>
        <translation>サイズ変更</translation>
    </message>
    <message>
        <source>Pixel Dimensions</source>
        <translation>ピクセル単位の大きさ</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>幅</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高さ</translation>
    </message>
    <message>
        <source>Invalid Number</source>
        <translation>無効な数値</translation>
    </message>
    <message>
        <source>Check if Width and Height
contain non-digit characters
or more than 5 digits.</source>
        <translation>幅と高さに数字以外の文字が
含まれていないか、5桁を超えて
いないか確認してください。</translation>
    </message>
    <message>
        <source>Image side is too small</source>
        <translation>画像の辺が短すぎます</translation>
    </message>
    <message>
        <source>Set Width and Height to 10 pixels or more.
</source>
        <translation>幅と高さを10ピクセル以上にしてください。
</translation>
    </message>
    <message>
        <source>Resulting size is too big</source>
        <translation>結果のサイズが大きすぎます</translation>
    </message>
    <message>
        <source>Decrease Width and Height
to fit the image in computer&apos;s memory.</source>
        <translation>画像がコンピューターのメモリに収まるように
幅と高さを小さくしてください。</translation>
    </message>
</context>
<context>
    <name>SimplePreviewDialog</name>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Page of %1 x %2 pixels, shown at %3 x %4.</source>
        <translation>%1 x %2 ピクセルのページを %3 x %4 で表示しています。</translation>
    </message>
</context>
<context>
    <name>UrlCopy</name>
    <message>
        <source>Could not open
%1</source>
        <translation>開けませんでした
%1</translation>
    </message>
    <message>
        <source>Host %1 found</source>
        <translation>ホスト %1 が見つかりました</translation>
    </message>
    <message>
        <source>Connected to host %1</source>
        <translation>ホスト %1 に接続しました</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>%1 への接続が閉じられました</translation>
    </message>
    <message>
        <source>Could not remove file or directory
%1</source>
        <translation>ファイルまたはフォルダを削除できませんでした
%1</translation>
    </message>
</context>
<context>
    <name>dialog_frame</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
</TS>
