10 ' A new colour mode resets the palette, but what is drawn waits for the next COLOR=.
20 SCREEN 3:CLS 3:LINE(0,100)-(300,300),1,BF:COLOR=(1,2):COLOR=(4,7)
30 COLOR ,,,,2:LINE(310,100)-(600,300),1,BF:LINE(400,150)-(500,250),4,BF
