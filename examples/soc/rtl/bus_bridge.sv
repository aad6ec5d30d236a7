// Turns the host's commands into bus transfers: "R", address high, address low gives one byte back;
// "W", address high, address low, data gives the byte "K" back. Other bytes are passed over.
module bus_bridge (
    input  logic        clk,
    input  logic        rst,
    input  logic [7:0]  rx_data,
    input  logic        rx_valid,
    output logic        rx_ready,
    output logic [7:0]  tx_data,
    output logic        tx_valid,
    input  logic        tx_ready,
    output logic        bus_request,
    output logic        bus_write,
    output logic [15:0] bus_address,
    output logic [7:0]  bus_wdata,
    input  logic [7:0]  bus_rdata,
    input  logic        bus_ack
);

    bridge_state_t state;
    bus_transfer_t transfer;
    logic [7:0]    reply;

    assign bus_request = state == BRIDGE_REQUEST;
    assign bus_write   = transfer.write;
    assign bus_address = transfer.address;
    assign bus_wdata   = transfer.data;
    assign tx_valid    = state == BRIDGE_REPLY;
    assign tx_data     = reply;
    assign rx_ready    = state != BRIDGE_REQUEST && state != BRIDGE_REPLY;

    always_ff @(posedge clk)
        if (rst) begin
            state    <= BRIDGE_IDLE;
            transfer <= '0;
            reply    <= '0;
        end else begin
            case (state)
                BRIDGE_IDLE:
                    if (rx_valid && (rx_data == soc_pkg::COMMAND_READ || rx_data == soc_pkg::COMMAND_WRITE)) begin
                        transfer.write <= rx_data == soc_pkg::COMMAND_WRITE;
                        state          <= BRIDGE_ADDRESS_HIGH;
                    end
                BRIDGE_ADDRESS_HIGH:
                    if (rx_valid) begin
                        transfer.address[15:8] <= rx_data;
                        state                  <= BRIDGE_ADDRESS_LOW;
                    end
                BRIDGE_ADDRESS_LOW:
                    if (rx_valid) begin
                        transfer.address[7:0] <= rx_data;
                        state                 <= transfer.write ? BRIDGE_DATA : BRIDGE_REQUEST;
                    end
                BRIDGE_DATA:
                    if (rx_valid) begin
                        transfer.data <= rx_data;
                        state         <= BRIDGE_REQUEST;
                    end
                BRIDGE_REQUEST:
                    if (bus_ack) begin
                        reply <= transfer.write ? soc_pkg::REPLY_DONE : bus_rdata;
                        state <= BRIDGE_REPLY;
                    end
                BRIDGE_REPLY:
                    if (tx_ready)
                        state <= BRIDGE_IDLE;
                default:
                    state <= BRIDGE_IDLE;
            endcase
        end

endmodule
