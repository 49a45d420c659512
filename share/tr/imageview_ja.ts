<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>ImageDocument</name>
    <message>
        <source>Error saving TIFF image!</source>
        <translation>TIFF 画像の保存中にエラーが発生しました!</translation>
    </message>
    <message>
        <source>Multipage image doesn&apos;t supported with format &lt;%1&gt;</source>
        <translation>複数ページの画像は形式 &lt;%1&gt; では保存できません</translation>
    </message>
    <message>
        <source>Can not open file for write: 
%1</source>
        <translation>ファイルを書き込み用に開けません: 
%1</translation>
    </message>
    <message>
        <source>The pages that are not open cannot be kept.</source>
        <translation>開かれていないページは残せません。</translation>
    </message>
    <message>
        <source>This is no plain file.</source>
        <translation>通常のファイルではありません。</translation>
    </message>
    <message>
        <source>A file of this format cannot be larger than %1.</source>
        <extracomment>%1 is a size in bytes, such as &quot;4 GiB&quot;</extracomment>
        <translation>この形式のファイルは %1 を超えることができません。</translation>
    </message>
    <message>
        <source>An image of %1 x %2 pixels cannot be saved in format &lt;%3&gt; at its size.</source>
        <translation>%1 x %2 ピクセルの画像は、その大きさのまま形式 &lt;%3&gt; で保存できません。</translation>
    </message>
</context>
<context>
    <name>ImageFileDialog</name>
    <message>
        <source>Can&apos;t append &apos;%1&apos; extension, file name is too long.</source>
        <translation>拡張子「%1」を付けられません。ファイル名が長すぎます。</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; already exists.
Do you want to replace it?</source>
        <translation>ファイル「%1」は既に存在します。
置き換えますか?</translation>
    </message>
</context>
<context>
    <name>ImageFormat</name>
    <message>
        <source>All graphic files</source>
        <translation>すべての画像ファイル</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <source>Tagged Image File Format</source>
        <translation>Tagged Image File Format</translation>
    </message>
    <message>
        <source>Multipage TIFF</source>
        <translation>複数ページ TIFF</translation>
    </message>
    <message>
        <source>Windows Bitmaps</source>
        <translation>Windows ビットマップ</translation>
    </message>
    <message>
        <source>Portable Network Graphics</source>
        <translation>Portable Network Graphics</translation>
    </message>
    <message>
        <source>Portable Bitmap Monochrome</source>
        <translation>Portable Bitmap 白黒</translation>
    </message>
    <message>
        <source>Portable Bitmap Grayscale</source>
        <translation>Portable Bitmap グレースケール</translation>
    </message>
    <message>
        <source>Portable Bitmap Colorful</source>
        <translation>Portable Bitmap カラー</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Page</source>
        <translation>ページ</translation>
    </message>
    <message>
        <source>Page picture</source>
        <translation>ページの画像</translation>
    </message>
    <message>
        <source>No image load</source>
        <translation>画像が読み込まれていません</translation>
    </message>
    <message>
        <source>[%1x%2]</source>
        <translation>[%1x%2]</translation>
    </message>
    <message>
        <source> (%1,%2)</source>
        <translation> (%1,%2)</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open File</source>
        <translation>ファイルを開く</translation>
    </message>
    <message>
        <source>Save File As</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>すべて保存</translation>
    </message>
    <message>
        <source>Choose Type</source>
        <translation>形式の選択</translation>
    </message>
    <message>
        <source>Please, choose the type explicitly.</source>
        <translation>形式を明示的に選択してください。</translation>
    </message>
    <message>
        <source>Unsupported Format</source>
        <translation>対応していない形式</translation>
    </message>
    <message>
        <source>Image format %1 is not supported!</source>
        <translation>画像形式 %1 には対応していません!</translation>
    </message>
    <message>
        <source>Save in:</source>
        <translation>保存先:</translation>
    </message>
</context>
<context>
    <name>SaveAllFileDialog</name>
    <message>
        <source>Autosave:</source>
        <translation>自動保存:</translation>
    </message>
    <message>
        <source>Use as basename for untitled images</source>
        <translation>無題の画像の基本名として使用</translation>
    </message>
</context>
</TS>
