10 ' Kana and kanji: half and full width, lengths and positions. The five
15 ' values of CONSOLE make this DOS-BASIC, which counts no shift codes.
20 CONSOLE 0,25,0,1,0:READ N
30 FOR I=1 TO N
40 READ K$,R$
50 PRINT K$;TAB(12);R$
60 NEXT I
70 PRINT
80 ' One character of half width takes one column, a kanji two.
90 H$="ｺﾝﾆﾁﾊ BASIC":F$="日本語のBASIC"
100 PRINT H$:PRINT F$
110 PRINT "KLEN";KLEN(H$);KLEN(F$)
120 PRINT "KMID$ ";KMID$(F$,2,2);" / ";KMID$(H$,3,3)
130 PRINT "KINSTR";KINSTR(F$,"語")
140 PRINT "AKCNV$ ";AKCNV$("ｶﾅ ABC 123")
150 PRINT "KACNV$ ";KACNV$("カナ")
160 PRINT "KEXT$ ";KEXT$(F$,0);" ";KEXT$(F$,1)
170 ' The fifty sounds, from their codes.
180 FOR ROW=0 TO 4
190 FOR COL=0 TO 4
200 PRINT CHR$(177+ROW+COL*5);" ";
210 NEXT COL
220 PRINT
230 NEXT ROW
240 DATA 5
250 DATA 春,spring,夏,summer,秋,autumn,冬,winter
260 DATA 東京タワー,Tokyo Tower
