<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>FindBar</name>
    <message>
        <source>&amp;Find:</source>
        <translation>検索(&amp;F):</translation>
    </message>
    <message>
        <source>Text to find in the page</source>
        <translation>ページ内で検索する文字列</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>前へ(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>次へ(&amp;N)</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>見つかりません</translation>
    </message>
</context>
<context>
    <name>HelpPages</name>
    <message>
        <source>There is no help page &quot;%1&quot;.</source>
        <translation>ヘルプのページ「%1」はありません。</translation>
    </message>
    <message>
        <source>The help pages are not installed: there is no directory &quot;%1&quot;.</source>
        <translation>ヘルプのページがインストールされていません。ディレクトリ「%1」がありません。</translation>
    </message>
    <message>
        <source>Page not found</source>
        <translation>ページが見つかりません</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help page</source>
        <translation>ヘルプのページ</translation>
    </message>
    <message>
        <source>The link to %1 leads out of the help and is not followed.</source>
        <translation>%1 へのリンクはヘルプの外を指しているため開きません。</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>目次</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>戻る(&amp;B)</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>進む(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Home</source>
        <translation>ホーム(&amp;H)</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>検索(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>拡大(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>縮小(&amp;S)</translation>
    </message>
    <message>
        <source>Prin&amp;t</source>
        <translation>印刷(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 - ヘルプ</translation>
    </message>
</context>
</TS>
