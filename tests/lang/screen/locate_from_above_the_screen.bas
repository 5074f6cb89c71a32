10 ' A column or a row that is left out is the cursor's own, also above the screen.
20 LOCATE 3,0:PRINT CHR$(30);:LOCATE ,6:A=POS(0):B=CSRLIN
30 LOCATE 3,0:PRINT CHR$(30);CHR$(30);:LOCATE 5:C=POS(0):D=CSRLIN
40 CLS:PRINT A;B;C;D
