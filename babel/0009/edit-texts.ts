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
    <message id="80010">
        <source>%s is no longer there.</source>
        <translation></translation>
    </message>
    <message id="80011">
        <source>%s was changed by another program. Its tags have been read again.</source>
        <translation></translation>
    </message>
    <message id="80012">
        <source>%s was changed by another program in the meantime.
Write the new value nevertheless?</source>
        <translation></translation>
    </message>
    <message id="80013">
        <source>%s was changed in %s</source>
        <translation></translation>
    </message>
    <message id="80014">
        <source>"%s" is not among the values of this tag, which cannot be edited therefore</source>
        <translation></translation>
    </message>
    <message id="80015">
        <source>The write was stopped. %s is as it was.</source>
        <translation></translation>
    </message>
    <message id="80016">
        <source>%s cannot be deleted</source>
        <translation></translation>
    </message>
    <message id="80017">
        <source>%s is as it was</source>
        <translation></translation>
    </message>
    <message id="80018">
        <source>%s was deleted from %s</source>
        <translation></translation>
    </message>
    <message id="80019">
        <source>Group %s of %s</source>
        <translation></translation>
    </message>
    <message id="80020">
        <source>%s tags of %s:</source>
        <translation></translation>
    </message>
    <message id="80021">
        <source>Click a row of the tags first.</source>
        <translation></translation>
    </message>
    <message id="80022">
        <source>Remove from the selected files</source>
        <translation></translation>
    </message>
</context>
</TS>
