10 PRINT LEFT$("ABC",2);"]";LEFT$("ABC",0);"]";LEFT$("ABC",255);"]";LEFT$("ABC",2.5);"]";LEFT$("ABC",1.4);"]";LEFT$("",5);"]"
