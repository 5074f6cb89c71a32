10 ' The text scrolls over a picture that stays; so it does once more behind the last Ok.
20 WIDTH 40,20:SCREEN 0:CLS 3:CIRCLE(320,100),180,4,,,,F,1
30 FOR I=1 TO 30:COLOR I MOD 7+1:PRINT SPACE$(I MOD 8);"行";I;"ｱ":NEXT I:COLOR 7
