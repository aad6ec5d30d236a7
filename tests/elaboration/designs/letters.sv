// Letters beyond ASCII in escaped names.
module \möd ;
  wire \drähte ;
endmodule
module top (input \größe );
  wire [1:0] \ß& ;
  \möd \ü ();
endmodule

//= top:top größe ß&[1:0]
//= top/ü:möd drähte
