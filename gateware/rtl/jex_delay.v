// A word that comes STAGES clocks later; 0 is a wire.
module jex_delay #(
    parameter WIDTH = 1,
    parameter STAGES = 1
) (
    input wire clk,
    input wire [WIDTH-1:0] in,
    output wire [WIDTH-1:0] out
);

    generate
        if (STAGES == 0) begin : none
            wire unused = clk;
            assign out = in;
        end else begin : some
            reg [WIDTH*STAGES-1:0] words;
            wire [WIDTH*(STAGES+1)-1:0] next = {words, in};
            initial words = {WIDTH * STAGES{1'b0}};
            always @(posedge clk) words <= next[WIDTH*STAGES-1:0];
            assign out = next[WIDTH*STAGES+:WIDTH];
        end
    endgenerate

endmodule
