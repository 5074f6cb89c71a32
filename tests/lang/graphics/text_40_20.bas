10 ' 40 columns of 20 rows, with wide characters and half-width kana.
20 WIDTH 40,20:SCREEN 1:CLS 3:LINE(0,30)-(639,130),4,BF,3
30 COLOR 6:LOCATE 3,4:PRINT "漢字 ｶﾅ かな ABC":COLOR 2:LOCATE 30,9:PRINT "図形の上":COLOR 7
