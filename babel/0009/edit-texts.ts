<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the edits of single tags. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="80001">
        <source>Modify: %s</source>
        <translation></translation>
    </message>
    <message id="80002">
        <source>Ctrl+Enter begins a new line.</source>
        <translation></translation>
    </message>
    <message id="80003">
        <source>One entry a line. Ctrl+Enter begins a new one.</source>
        <translation></translation>
    </message>
    <message id="80004">
        <source>"%s" is not a whole number.</source>
        <translation></translation>
    </message>
    <message id="80005">
        <source>"%s" is not a number that the tag can hold. It can be 0.5, 1/3, 2.5e-3, inf or undef.</source>
        <translation></translation>
    </message>
    <message id="80006">
        <source>The present value "%s" is not a date. It stays as it is until a date is chosen.</source>
        <translation></translation>
    </message>
    <message id="80007">
        <source>Stays behind the time: %s</source>
        <translation></translation>
    </message>
    <message id="80008">
        <source>The present value "%s" is none of these. It stays as it is until one is chosen.</source>
        <translation></translation>
    </message>
</context>
</TS>
