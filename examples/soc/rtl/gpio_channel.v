// One pin: driver, synchroniser and change detector.
module gpio_channel (
    input  wire clk,
    input  wire rst,
    input  wire out,
    input  wire enable,
    input  wire clear,
    inout  wire pad,
    output wire in,
    output reg  changed
);

    reg [2:0] sync;

    assign pad = enable ? out : 1'bz;
    assign in  = sync[1];

    always @(posedge clk)
        if (rst) begin
            sync    <= 3'b000;
            changed <= 1'b0;
        end else begin
            sync <= {sync[1:0], pad};
            if (sync[2] != sync[1])
                changed <= 1'b1;
            else if (clear)
                changed <= 1'b0;
        end

endmodule
